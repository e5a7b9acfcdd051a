#include "simulator/scan_encoder.h"

#include "bench.h"

#include <gtest/gtest.h>

namespace lcusim::test {

namespace {

Bytes encoded(LcuModel model, const ScanContent& content) {
    std::array<std::uint8_t, mostScanBytes> bytes{};
    const std::size_t size = encodeScan(model, content, bytes);
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

ScanContent sample() {
    ScanContent content{.depthCount = -2, .timeCount = 0x1234, .wordCount = 2, .status = 145};
    content.words = {0xABCD, 0x0007};
    content.currentMilliamperes = 55;
    content.volts = 48.5;
    content.marker = 0xBEEF;
    return content;
}

} // namespace

TEST(ScanEncoder, LaysOutBothModels) {
    EXPECT_EQ(encoded(LcuModel::lcu2Plus, sample()),
              (Bytes{12, 0xFF, 0xFF, 0xFE, 0x12, 0x34, 0xAB, 0xCD, 0x00, 0x07, 145, 55}));
    // 48.5 V are 1000 counts, 55 mA are 100 counts the other way round: 4096 - 100 = 0xF9C.
    EXPECT_EQ(encoded(LcuModel::lcu4, sample()), (Bytes{17, 0xFF, 0xFF, 0xFE, 0x12, 0x34, 0xAB, 0xCD, 0x00,
                                                        0x07, 145, 0xBE, 0xEF, 0x03, 0xE8, 0x0F, 0x9C}));
}

TEST(ScanEncoder, CountsOfTheLengthByteFollowTheChannels) {
    for (std::size_t words = 0; words <= mostWords; ++words) {
        ScanContent content;
        content.wordCount = words;
        EXPECT_EQ(encoded(LcuModel::lcu2Plus, content).size(), 1 + 7 + 2 * words);
        EXPECT_EQ(encoded(LcuModel::lcu4, content).at(0), 1 + 12 + 2 * words);
    }
}

TEST(ScanEncoder, SupplyStaysWithinItsField) {
    ScanContent content = sample();
    content.currentMilliamperes = 5000;
    EXPECT_EQ(encoded(LcuModel::lcu2Plus, content).back(), 255);
    const Bytes four = encoded(LcuModel::lcu4, content);
    EXPECT_EQ(four[four.size() - 2] << 8 | four.back(), 4096 - 2047);
}

} // namespace lcusim::test
