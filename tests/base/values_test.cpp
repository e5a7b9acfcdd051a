// Bytes, rounding, texts, dates and fixed-width fields.
#include "base/bytes.h"
#include "base/civil_time.h"
#include "base/failure.h"
#include "base/fixed_record.h"
#include "base/rounding.h"
#include "base/text.h"

#include <gtest/gtest.h>

using namespace tarvik;

TEST(Bytes, OrderAndWidthAreAsNamed) {
    constexpr std::uint8_t raw[] = {0x81, 0x02, 0x03, 0xF4};
    EXPECT_EQ(readU16be(raw), 0x8102);
    EXPECT_EQ(readU24be(raw), 0x810203U);
    EXPECT_EQ(readU16le(raw), 0x0281);
    EXPECT_EQ(readI32le(raw), static_cast<std::int32_t>(0xF4030281));
    std::uint8_t out[8];
    writeF64le(out, -1.5);
    EXPECT_EQ(readF64le(out), -1.5);
    writeI16le(out, -2);
    EXPECT_EQ(out[0], 0xFE);
}

TEST(Rounding, HalvesGoToEvenAndOverflowIsAnError) {
    EXPECT_EQ(toInt32(2.5), 2);
    EXPECT_EQ(toInt32(3.5), 4);
    EXPECT_EQ(toInt32(-2.5), -2);
    EXPECT_EQ(toInt32(-3.5), -4);
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_THROW(std::ignore = toInt16(32767.5), Failure);
    EXPECT_THROW(std::ignore = toInt32(2147483648.0), Failure);
    EXPECT_THROW(std::ignore = toInt32(0.0 / 0.0), Failure);
    EXPECT_EQ(roundedQuotient(900, 600), 2);
    EXPECT_EQ(roundedQuotient(300, 600), 0);
}

TEST(Text, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(trimmed("  a b \t "), "a b \t");
    EXPECT_EQ(trimmed("   "), "");
}

TEST(Text, AnsiRoundTripAndReplacement) {
    EXPECT_EQ(toAnsi("µ€é"), "\xB5\x80\xE9");
    EXPECT_EQ(fromAnsi("\xB5\x80\xE9"), "µ€é");
    EXPECT_EQ(toAnsi("a\u0436b"), "a?b");         // outside the code page
    EXPECT_EQ(toAnsi("a\xC3"), "a?");             // torn UTF-8
    EXPECT_EQ(toAnsi("\xF0\x9F\x98\x80!"), "?!"); // one character, one question mark
    EXPECT_EQ(toAnsi("\xC0\x80!"), "?!");         // no zero byte by the back door
    for (int byte = 1; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(toAnsi(fromAnsi(one)), one) << byte;
    }
}

TEST(Text, NumbersAreReadWholeOrFromTheStart) {
    EXPECT_EQ(parseNumber(" 1.5 "), 1.5);
    EXPECT_EQ(parseNumber("+2"), 2.0);
    for (const char* bad : {"", " ", "1,5", "1.5m", "+-1", "nan", "inf"})
        EXPECT_FALSE(parseNumber(bad)) << bad;
    EXPECT_EQ(leadingNumber(" 21abc"), 21);
    EXPECT_EQ(leadingNumber("x1"), 0);
    EXPECT_EQ(parseInteger("-12"), -12);
    EXPECT_FALSE(parseInteger("12.0"));
}

TEST(CivilTime, DateTextsOfLogsAndFiles) {
    const CivilTime afternoon{.year = 2006, .month = 3, .day = 13, .hour = 14, .minute = 5, .second = 9};
    EXPECT_EQ(formatDate(afternoon, "ddd-dd-mmm-yyyy"), "Mon-13-Mar-2006");
    EXPECT_EQ(formatDate(afternoon, "dddd, dd-mmm-yyyy"), "Monday, 13-Mar-2006");
    EXPECT_EQ(formatDate(afternoon, "dddd dd-mmm-yy hh:mm:ss"), "Monday 13-Mar-06 14:05:09");
    EXPECT_EQ(formatDate(afternoon, "hh:mm am/pm"), "02:05 pm");
    EXPECT_EQ(formatDate(afternoon, "ddmmyy"), "130306");
    CivilTime midnight = afternoon;
    midnight.hour = 0;
    EXPECT_EQ(formatDate(midnight, "hh:mm am/pm"), "12:05 am");
    midnight.hour = 12;
    EXPECT_EQ(formatDate(midnight, "hh:mm am/pm"), "12:05 pm");
}

TEST(CivilTime, MovesAcrossMonthsAndYears) {
    const CivilTime lastNight{.year = 2027, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};
    const CivilTime next = plusMilliseconds(lastNight, 1500);
    EXPECT_EQ(next, (CivilTime{.year = 2028, .month = 1, .day = 1, .millisecond = 500}));
    EXPECT_EQ(plusMilliseconds(next, -1500), lastNight);
    EXPECT_EQ(weekday(next), 6);
}

TEST(FixedRecord, TextsArePaddedCutAndTrimmed) {
    FixedRecord<12> record;
    constexpr TextField name{2, 5};
    EXPECT_EQ(record.get(name), ""); // never written
    record.set(name, "Gam");
    EXPECT_EQ(std::string(record.bytes().begin(), record.bytes().end()),
              std::string("\0\0Gam  \0\0\0\0\0", 12));
    EXPECT_EQ(record.get(name), "Gam");
    record.set(name, "Temperature");
    EXPECT_EQ(record.get(name), "Tempe");
    record.set(name, "  é ");
    EXPECT_EQ(record.get(name), "é");
    record.set(Int16Field{8}, -1);
    EXPECT_EQ(record.get(Int16Field{8}), -1);
    EXPECT_EQ(FixedRecord<12>(record.bytes().first(4)).get(Int16Field{8}), 0);
}

TEST(Text, Utf8IsToldFromOtherEightBitText) {
    for (const char* const text : {"", "plain", "\xC3\xBC", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80"}) {
        EXPECT_TRUE(isUtf8(text)) << text;
    }
    for (const char* const text : {"\xFC", "\xC3", "\xC3z", "\xC0\x80", "\xF8\x88\x80\x80\x80"}) {
        EXPECT_FALSE(isUtf8(text)) << text;
    }
}
