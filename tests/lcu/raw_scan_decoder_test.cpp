// The raw decoder: its own rules of sign, and the places of its entries.
#include "lcu/scan_bench.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr std::int32_t untouched = -99;

struct Raw {
    std::int16_t count = 0;
    CurrentScan scan;
};

Raw raw(const LcuModel* model, const char* code, int channels, const ScanData& data) {
    ScanBench bench(model, code, channels);
    Raw result;
    result.scan.rawData.fill(untouched);
    result.count = RawScanDecoder(bench.errors, bench.setup).LCU_GetRawDataScan(data, result.scan);
    return result;
}

/// The entries that were written; nothing lies behind them.
std::vector<std::int32_t> entries(const CurrentScan& scan) {
    const auto end = std::ranges::find(scan.rawData, untouched);
    return {scan.rawData.begin(), end};
}

} // namespace

TEST(RawScanDecoder, EntriesOfBothModels) {
    const Raw two = raw(lcu2Plus, "K100", 2, scanData(0x800000, 65535, {65535, 5}, {129, 77}));
    EXPECT_EQ(two.count, 6);
    EXPECT_EQ(two.scan.channelCount, 2);
    EXPECT_EQ(entries(two.scan), (std::vector<std::int32_t>{-8388608, 65535, 65535, 5, 129, 77}));

    const ScanData trailer{145, 0x07, 0xFF, 0x0F, 0xFF, 0x08, 0x00}; // status, A, B, C
    const Raw four = raw(lcu4, "K100", 2, scanData(0x7FFFFF, 1, {0, 5}, trailer));
    EXPECT_EQ(four.count, 8);
    EXPECT_EQ(entries(four.scan), (std::vector<std::int32_t>{8388607, 1, 0, 5, 145, -2047, 0, 2047}));
}

TEST(RawScanDecoder, SignedWordsGoByTheFirstFourCharacters) {
    const ScanData data = scanData(0, 1, {65535, 32767}, idle);
    for (const char* code : {"K417", "K522", "K417B"}) {
        EXPECT_EQ(raw(lcu2Plus, code, 2, data).scan.rawData[2], -1) << code;
        EXPECT_EQ(raw(lcu2Plus, code, 2, data).scan.rawData[3], 32767) << code;
    }
    for (const char* code : {"K245", "K41", ""}) {
        EXPECT_EQ(raw(lcu2Plus, code, 2, data).scan.rawData[2], 65535) << code;
    }
}

TEST(RawScanDecoder, EmptyFullAndForeignScans) {
    const Raw empty = raw(lcu2Plus, "K100", 2, {});
    EXPECT_EQ(empty.count, 0);
    EXPECT_TRUE(entries(empty.scan).empty());

    const Raw full = raw(lcu4, "K100", 20, scanData(1, 2, std::vector<std::uint16_t>(20, 3), idle4));
    EXPECT_EQ(full.count, 26) << "as computed";
    EXPECT_EQ(full.scan.rawData[20], 3) << "what lies past index 20 is dropped";

    const Raw none = raw(nullptr, "K100", 1, scanData(1, 2, {3}, idle));
    EXPECT_EQ(none.count, 2) << "an unknown model leaves the channel count alone";
    EXPECT_EQ(entries(none.scan), (std::vector<std::int32_t>{1, 2, 3}));
}
