#include "base/axis_ticks.h"

#include "base/sampling_words.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(AxisTicks, AreRoundNumbersWithinTheRange) {
    EXPECT_THAT(axisTicks(0, 100, 6).labels, ElementsAre("0", "20", "40", "60", "80", "100"));
    EXPECT_THAT(axisTicks(-0.07, 0.31, 5).labels, ElementsAre("0.0", "0.1", "0.2", "0.3"));
    EXPECT_THAT(axisTicks(1234, 1236, 5).labels,
                ElementsAre("1234.0", "1234.5", "1235.0", "1235.5", "1236.0"));
    EXPECT_THAT(axisTicks(-3e6, 3e6, 4).labels, ElementsAre("-2000000", "0", "2000000"));
    for (const int most : {2, 3, 5, 9, 20})
        EXPECT_LE(axisTicks(-17.3, 1234.5, most).at.size(), static_cast<std::size_t>(most));
}

TEST(AxisTicks, ARangeWithoutExtentHasNone) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(axisTicks(5, 5, 5).at, IsEmpty());
    EXPECT_THAT(axisTicks(none, 5, 5).at, IsEmpty());
    EXPECT_THAT(axisTicks(-1e308, 1e308, 5).at, IsEmpty());
}

TEST(SamplingWords, DepthIntervalsCountCentimetresInEitherUnit) {
    EXPECT_EQ(intervalText(Sampling::time, 0.5F, DepthUnits::feet), "0.5 s");
    EXPECT_EQ(intervalText(Sampling::depth, 5, DepthUnits::metres), "5 cm");
    EXPECT_EQ(intervalText(Sampling::depth, 5, DepthUnits::feet), "5 cm (0.164 ft)");
}
