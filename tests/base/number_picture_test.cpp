#include "base/number_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

using namespace tarvik;

TEST(NumberPicture, RoundsTiesAwayFromZeroOnTheDecimalValue) {
    EXPECT_EQ(formatPicture(2.675, "###0.00"), "2.68"); // binary is below the tie, the decimal is on it
    EXPECT_EQ(formatPicture(-2.675, "###0.00"), "-2.68");
    EXPECT_EQ(formatPicture(0.145F, "###0.00"), "0.15");
    EXPECT_EQ(formatPicture(999.995, "###0.00"), "1000.00");
    EXPECT_EQ(formatPicture(0.05, "##0.0"), "0.1");
    EXPECT_EQ(formatPicture(0.95, "##0"), "1");
    EXPECT_EQ(formatPicture(0.4999, "##0"), "0");
    EXPECT_EQ(formatPicture(5e-9, "0.0000000"), "0.0000000");
}

TEST(NumberPicture, PrintsDigitsWhereThePictureAsksForThem) {
    EXPECT_EQ(formatPicture(0.5, "#,###.00"), ".50");
    EXPECT_EQ(formatPicture(0, "#,###.00"), ".00");
    EXPECT_EQ(formatPicture(1234567.891, "#,##0.00"), "1,234,567.89");
    EXPECT_EQ(formatPicture(123.0, "#,##0.00"), "123.00");
    EXPECT_EQ(formatPicture(7, "##00"), "07");
    EXPECT_EQ(formatPicture(100, "00"), "100");
    EXPECT_EQ(formatPicture(1.5, "0.0##"), "1.5");
    EXPECT_EQ(formatPicture(12, "####0"), "12");
    EXPECT_EQ(formatPicture(7, "000"), "007");
}

TEST(NumberPicture, AValueThatRoundsToZeroHasNoSign) {
    EXPECT_EQ(formatPicture(-0.004, "###0.00"), "0.00");
    EXPECT_EQ(formatPicture(-0.005, "###0.00"), "-0.01");
    EXPECT_EQ(formatPicture(-0.0, "##0"), "0");
}

TEST(NumberPicture, FixedColumnsAgreeWithThePicture) {
    for (const float value : {0.0F, -0.004F, 0.005F, 1.0F, -12.345F, 99.995F, 1e7F, 327.67F, 3e-12F, 1e30F}) {
        std::string column;
        appendFixed(column, value, 2, 12);
        const std::string number = formatPicture(value, "#######0.00");
        EXPECT_EQ(column, std::string(number.size() < 12 ? 12 - number.size() : 0, ' ') + number);
    }
    // Around the ties of the second decimal, where the quick way must give way to the exact one.
    std::uint32_t random = 1;
    for (int i = 0; i < 20000; ++i) {
        random = random * 1664525 + 1013904223;
        const double thousandths = (static_cast<double>(random >> 12) * 10 + 5) / 1000;
        for (const float value : {static_cast<float>(thousandths), static_cast<float>(thousandths / 64),
                                  std::nextafter(static_cast<float>(-thousandths), 0.0F)}) {
            std::string quick;
            appendFixed(quick, value, 2, 0);
            ASSERT_EQ(quick, formatPicture(value, "#######0.00"));
        }
        std::string quick;
        appendFixed(quick, thousandths, 2, 0);
        ASSERT_EQ(quick, formatPicture(thousandths, "#######0.00"));
    }
    std::string wide;
    appendFixed(wide, 123456.0, 5, 4);
    EXPECT_EQ(wide, "123456.00000");
}

TEST(NumberPicture, ShortestNumbers) {
    EXPECT_EQ(shortestNumber(50.0), "50");
    EXPECT_EQ(shortestNumber(12.5F), "12.5");
    EXPECT_EQ(shortestNumber(0.1F), "0.1");
    EXPECT_EQ(shortestNumber(-999.25), "-999.25");
    EXPECT_EQ(shortestNumber(100000.0), "100000");
    EXPECT_EQ(shortestNumber(std::numeric_limits<double>::quiet_NaN()), "NaN");
}
