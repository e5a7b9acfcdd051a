// The value decoder: fields and signs, conversion types, depth flags, derived channels, broken scans.
#include "lcu/scan_bench.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

TEST(ScanDecoder, FieldsOfBothModels) {
    ScanBench two(lcu2Plus);
    two.setup.run.winchDepthFactor = 1.5;
    two.state.current.elapsedTime = 1000;
    two.decode(scanData(1234, 5000, {1, 0x1234, 65535}, {129, 77}));
    EXPECT_EQ(two.scan().depth, static_cast<float>(1234 * 0.01 * 1.5));
    EXPECT_EQ(two.scan().scanTime, 5000);
    EXPECT_EQ(two.scan().elapsedTime, 6000);
    EXPECT_EQ(two.scan().status, 129);
    EXPECT_EQ(two.scan().toolCurrent, 77);
    EXPECT_EQ(two.scan().channelCount, 3);
    EXPECT_EQ(two.scan().channels[2], 0x1234);
    EXPECT_EQ(two.scan().calibrated[3], 2 * 65535.0F);

    ScanBench four(lcu4);
    four.decode(scanData(0xFFFFFF, 1, {1, 2, 3}, {145, 0xAB, 0xCD, 0x0F, 0x9C, 0x00, 0x64}));
    EXPECT_EQ(four.scan().depth, -0.01F);
    EXPECT_EQ(four.scan().status, 145);
    EXPECT_EQ(four.scan().auxiliaryWord, 0xABCD);
    EXPECT_EQ(four.scan().toolVoltage, 5) << "word B -100, without its sign: 4.85 V rounded";
    EXPECT_EQ(four.scan().toolCurrent, 55);
    EXPECT_EQ(four.state.carriedChannels, 3);
}

TEST(ScanDecoder, BordersOfTheSigns) {
    struct Case {
        std::uint32_t depth;
        float metres;
        std::uint8_t high, low; ///< of word C
        float current;
    };
    const Case cases[] = {
        {0x7FFFFF, 83886.07F, 0x07, 0xFF, 1126},  // 2047 × 0.55 = 1125.85
        {0x800000, 83886.08F, 0x08, 0x00, 1126},  // still positive: 1126.4
        {0x800001, -83886.07F, 0x08, 0x01, 1126}, // -2047
        {0xFFFFFF, -0.01F, 0x0F, 0xFF, 1},
        {0, 0, 0, 10, 6},  // 5.5 goes to the even neighbour
        {0, 0, 0, 30, 16}, // 16.5 too
    };
    for (const Case& c : cases) {
        ScanBench bench(lcu4);
        bench.decode(scanData(c.depth, 1, {0, 0, 0}, {145, 0, 0, 0, 0, c.high, c.low}));
        EXPECT_EQ(bench.scan().depth, c.metres);
        EXPECT_EQ(bench.scan().toolCurrent, c.current);
    }
}

TEST(ScanDecoder, ConversionTypes) {
    struct Case {
        std::int16_t kind;
        std::uint16_t time, word;
        float value, calibrated;
    };
    const Case cases[] = {
        {0, 100, 7, 0, 0},
        {1, 5000, 7, 14, 29},
        {1, 20000, 5, 2, 5}, // 2.5
        {1, 20000, 7, 4, 9}, // 3.5
        {2, 100, 3, 500000, 1000001},
        {2, 100, 0, 0, 0}, // no division, and not c1 either
        {3, 100, 2048, 2048, 4097},
        {3, 100, 2049, -2047, -4093},
        {4, 100, 65535, 65535, 131071},
        {5, 100, 9, 9, 19},
        {6, 100, 9, 0, 0},
        {-1, 100, 9, 0, 0},
        {1, 0, 7, 0, 0}, // without a scan time nothing has a value
        {4, 0, 7, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "kind " << c.kind << " word " << c.word);
        ScanBench bench(lcu2Plus);
        bench.setup.factors[2] = {.kind = c.kind, .factor = 1.5F};
        bench.setup.polynomials[2].coefficients = {1, 2};
        bench.state.current.calibrated[2] = 99; // of the scan before
        bench.decode(scanData(0, c.time, {0, c.word, 0}, idle));
        EXPECT_EQ(bench.scan().channels[2], c.value);
        EXPECT_EQ(bench.scan().calibrated[2], c.calibrated);
    }
}

TEST(ScanDecoder, AnUncalibratedChannelReadsZero) {
    ScanBench bench(lcu2Plus);
    bench.setup.polynomials[1] = {.order = 0, .coefficients = {5, 2}};
    bench.decode(scanData(0, 100, {9, 9, 9}, idle));
    EXPECT_EQ(bench.scan().channels[1], 9);
    EXPECT_EQ(bench.scan().calibrated[1], 0);

    ScanDecoder decoder(bench.errors, bench.log, bench.setup, bench.state);
    bench.state.current.channels[20] = 4;
    decoder.ConvertToCalibData(20);
    EXPECT_EQ(bench.scan().calibrated[20], 8);
    decoder.ConvertToCalibData(21);
    EXPECT_EQ(bench.reports.lines.size(), 1U);
}

TEST(ScanDecoder, SignedWordsBelongToTools) {
    const auto value = [](const char* code, std::size_t channel) {
        ScanBench bench(lcu2Plus, code, 5);
        bench.decode(scanData(0, 100, {65535, 65535, 65535, 65535, 32767}, idle));
        return bench.scan().channels[channel];
    };
    EXPECT_EQ(value("K100", 1), 65535);
    EXPECT_EQ(value("K417", 1), -1);
    EXPECT_EQ(value("K417", 5), 32767);
    EXPECT_EQ(value("K417B", 1), 65535) << "the whole code counts";
    EXPECT_EQ(value("K245", 3), 65535);
    EXPECT_EQ(value("K245", 4), -1);
    EXPECT_EQ(value("K522", 4), 65535) << "signed for the raw decoder only";
}

TEST(ScanDecoder, TheFirstTwoScansCarryNothing) {
    ScanBench bench(lcu2Plus);
    bench.state.current.depth = 7;
    bench.state.current.status = 5;
    bench.state.current.channelCount = 2;
    bench.state.current.channels = {0, 1, 2, 3};
    bench.state.flags.advance = true;
    const ScanData data = scanData(500, 100, {9, 9, 9}, idle);
    for (bench.state.scans = 1; bench.state.scans <= 2; ++bench.state.scans) {
        bench.decode(data);
        EXPECT_EQ(bench.scan().depth, 7);
        EXPECT_EQ(bench.scan().status, 5);
        EXPECT_EQ(bench.scan().channels[2], 0);
        EXPECT_EQ(bench.scan().channels[3], 3) << "beyond the previous channel count";
        EXPECT_FALSE(bench.state.flags.advance);
        bench.decode({}); // an empty one is no failure here
        EXPECT_TRUE(bench.lines.lines.empty());
    }
    bench.decode(data);
    EXPECT_EQ(bench.scan().depth, 5);
    EXPECT_FALSE(bench.state.flags.advance) << "the third sets where sampling starts";
    EXPECT_EQ(bench.state.lastSampledDepth, 5);
}

TEST(ScanDecoder, AnEmptyScanIsTheOneFailure) {
    ScanBench bench(lcu4);
    bench.state.current.channels.fill(8);
    bench.state.current.channelCount = 3;
    bench.state.current.auxiliaryWord = 8;
    bench.decode({});
    EXPECT_EQ(bench.lines.lines, Lines{"2Problems deciphering data from LCU"});
    EXPECT_EQ(bench.scan().status, -1);
    EXPECT_EQ(bench.scan().auxiliaryWord, 0);
    EXPECT_EQ(bench.scan().channelCount, 0);
    EXPECT_EQ(bench.scan().channels[10], 0);
    EXPECT_EQ(bench.scan().channels[11], 8);
}

TEST(DepthFlags, SamplingByDepth) {
    struct Case {
        const char* legend;
        Direction direction;
        std::int32_t from, to; ///< centimetres
        bool advance;
    };
    const Case cases[] = {
        {"standing", Direction::down, 500, 500, false},
        {"down", Direction::down, 500, 501, true},
        {"down, 99 cm", Direction::down, 500, 599, true},
        {"down, 1 m is a jump", Direction::down, 500, 600, false},
        {"back up on the way down", Direction::down, 500, 499, false},
        {"up", Direction::up, 500, 499, true},
        {"up, 1 m is a jump", Direction::up, 500, 400, false},
        {"down on the way up", Direction::up, 500, 501, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        ScanBench bench(lcu2Plus);
        bench.setup.run.sampling = Sampling::depth;
        bench.setup.run.direction = c.direction;
        bench.at(c.from);
        EXPECT_FALSE(bench.state.flags.advance);
        bench.at(c.to);
        EXPECT_EQ(bench.state.flags.advance, c.advance);
        EXPECT_EQ(bench.state.lastSampledDepth, static_cast<float>((c.advance ? c.to : c.from) * 0.01));
        EXPECT_FALSE(bench.state.flags.endReached) << "without limits there is no end";
    }
}

TEST(DepthFlags, SamplingByTimeTakesEveryScanInRange) {
    ScanBench bench(lcu2Plus);
    bench.setup.run.limitsOverride = false;
    bench.setup.run.topDepth = 1;
    bench.setup.run.bottomDepth = 10;
    bench.at(50); // above the top: sampling has not begun
    EXPECT_EQ(bench.state.lastSampledDepth, noDepthSampled);
    bench.at(500);
    EXPECT_FALSE(bench.state.flags.advance);
    bench.at(500);
    EXPECT_TRUE(bench.state.flags.advance) << "a tool at rest is sampled too";
    bench.at(50);
    EXPECT_FALSE(bench.state.flags.advance);
}

TEST(DepthFlags, LimitsAndOffsets) {
    ScanBench bench(lcu2Plus);
    RunSetup& run = bench.setup.run;
    run.limitsOverride = false;
    run.topDepth = 10;
    run.bottomDepth = 20;
    run.offset1 = 50; // together 1 m
    run.offset2 = 50;
    const auto inRange = [&](std::int32_t centimetres) {
        bench.at(centimetres);
        return bench.state.flags.inRange;
    };
    EXPECT_TRUE(inRange(1000)) << "the top is compared without the offsets";
    EXPECT_FALSE(inRange(999));
    EXPECT_TRUE(inRange(1900)) << "the bottom with them";
    EXPECT_FALSE(inRange(1901));
    const auto nearRange = [&](std::int32_t centimetres) {
        bench.at(centimetres);
        return bench.state.flags.nearRange;
    };
    EXPECT_TRUE(nearRange(-9000));
    EXPECT_FALSE(nearRange(-9001));
    EXPECT_TRUE(nearRange(102000));
    EXPECT_FALSE(nearRange(102001));
    run.limitsOverride = true;
    EXPECT_TRUE(inRange(999999));
}

TEST(DepthFlags, TheEnd) {
    struct Case {
        Direction direction;
        std::int32_t from, to;
        bool end;
    };
    const Case cases[] = {
        {Direction::down, 1750, 1800, false}, // 20 - 1 - 18: exactly the distance is not less
        {Direction::down, 1750, 1801, true},
        {Direction::up, 1150, 1100, false}, // 11 - 10, the offsets do not count
        {Direction::up, 1150, 1099, true},
        {Direction::up, 1099, 1099, false}, // no sample, no end
    };
    for (const Case& c : cases) {
        ScanBench bench(lcu2Plus);
        bench.setup.run = {.sampling = Sampling::depth,
                           .direction = c.direction,
                           .offset1 = 100,
                           .limitsOverride = false,
                           .topDepth = 10,
                           .bottomDepth = 20,
                           .endDistance = 1};
        bench.at(c.from);
        bench.at(c.to);
        EXPECT_EQ(bench.state.flags.endReached, c.end) << c.to;
    }
}

namespace {

/// Stands where the deviation of the hole is computed.
class Deviation final : public DerivedValues {
  public:
    void derive(CurrentScan& scan) override {
        ++calls;
        for (std::size_t i = 7; i <= 12; ++i) scan.channels[i] = static_cast<float>(100 * i);
    }
    int calls = 0;
};

} // namespace

TEST(DerivedChannels, OfTheDeviationTool) {
    const ScanData data = scanData(0, 100, {1, 2, 3, 4, 5, 6, 7, 8}, idle);
    Deviation deviation;
    ScanBench bench(lcu2Plus, "K417", 8);
    bench.setup.factors[6] = {.kind = 2, .factor = 0}; // its value stays what its own type made of it
    bench.setup.polynomials[6].coefficients = {1, 2};
    bench.decode(scanData(0, 100, {1, 2, 3, 4, 5, 0, 7, 8}, idle), &deviation);
    EXPECT_EQ(bench.state.carriedChannels, 8);
    EXPECT_EQ(bench.scan().channelCount, 12);
    EXPECT_EQ(bench.scan().calibrated[6], 0) << "measured channels are not converted again";
    EXPECT_EQ(bench.scan().calibrated[7], 1400) << "the words 7 and 8 are overwritten";
    EXPECT_EQ(bench.scan().calibrated[12], 2400);
    EXPECT_EQ(bench.scan().calibrated[13], 0);

    bench.decode(scanData(0, 0, {1, 2, 3, 4, 5, 6, 7, 8}, idle), &deviation);
    EXPECT_EQ(deviation.calls, 1) << "a scan without time moves nothing";
    EXPECT_EQ(bench.scan().channelCount, 12);
    EXPECT_EQ(bench.scan().calibrated[12], 0);

    bench.decode(data);
    EXPECT_EQ(bench.scan().channels[6] + bench.scan().channels[7], 0)
        << "nobody computes: no raw word passes";
}

TEST(DerivedChannels, OfOtherTools) {
    struct Case {
        const char* code;
        int carried;
        std::int16_t count;
        std::array<float, 4> calibrated; ///< from channel 6 on
    };
    const Case cases[] = {
        {"K100", 6, 6, {12, 7, 7, 7}}, {"K240", 6, 7, {12, 200, 7, 7}}, {"K245", 6, 7, {12, 0, 7, 7}},
        {"K306", 6, 8, {12, 0, 0, 7}}, {"K307", 6, 6, {12, 7, 7, 7}},   {"K522", 6, 7, {12, 0, 7, 7}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        ScanBench bench(lcu2Plus, c.code, c.carried);
        bench.state.current.calibrated.fill(7);
        bench.state.current.channels.fill(3);
        bench.decode(scanData(0, 100, {1, 2, 3, 4, 5, 6}, idle));
        EXPECT_EQ(bench.scan().channelCount, c.count);
        for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(bench.scan().calibrated[6 + i], c.calibrated[i]) << i;
        EXPECT_EQ(bench.scan().channels[9], c.code == std::string("K522") ? 0 : 3);
    }
}

TEST(ScanDecoder, BrokenScansAreReadWithinTheirBounds) {
    const std::string codes[] = {"K100", "K417", "K240", "K522"};
    for (const LcuModel* model : {lcu2Plus, lcu4}) {
        for (const std::string& code : codes) {
            for (std::size_t length = 1; length <= 254; ++length) {
                ScanBench bench(model, code, 20);
                const ScanData data(length, 0xFF); // on the heap: the sanitizer sees a byte too far
                bench.decode(data);
                const double trailing = model == lcu4 ? 12 : 7;
                const auto carried = static_cast<std::int16_t>(
                    std::nearbyint((static_cast<double>(length) - trailing) / 2)); // halves to even
                ASSERT_EQ(bench.state.carriedChannels, carried);
                RawScanDecoder(bench.errors, bench.setup).LCU_GetRawDataScan(data, bench.state.current);
                ASSERT_TRUE(bench.reports.lines.empty());
            }
        }
    }
    ScanBench torn(lcu2Plus);
    torn.decode({0, 0, 1, 0, 100, 0, 9, 0x12});
    EXPECT_EQ(torn.scan().channels[1], 9);
    EXPECT_EQ(torn.scan().channels[2], 0x1200) << "a byte that is not there reads 0";
    EXPECT_EQ(torn.scan().channels[3], 0);
}

TEST(ScanSetup, TakesTheCalibrationsOfTheMode) {
    CurrentTool tool;
    tool.record.set(tool::code, "K240");
    tool.record.set(tool::channelCount(2), 2);
    tool.mode = 2;
    tool.factors.fill({.kind = 4, .factor = 0});
    tool.calibrations[1][20].order = 3;
    const ScanSetup setup = prepareScans(tool, lcu4, {});
    EXPECT_EQ(setup.toolCode, "K240");
    EXPECT_EQ(setup.channels, 2);
    EXPECT_EQ(setup.factors[2].kind, 4);
    EXPECT_EQ(setup.factors[3].kind, 0) << "above the mode's channels";
    EXPECT_EQ(setup.polynomials[20].order, 3) << "derived channels are calibrated too";
    tool.mode = 3;
    EXPECT_EQ(prepareScans(tool, lcu4, {}).polynomials[20].order, 0);
}
