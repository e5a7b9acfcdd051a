// Search, commands, reader and decoder against the simulated box, which packs its own bytes.
#include "lcu/lcu_bench.h"
#include "lcu/scan_decoder.h"
#include "lcu/scan_reader.h"
#include "simulator/simulated_port.h"
#include "simulator/tool_file.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

/// A deviation tool on a box at COM2, in a hole.
class SimulatedLcu : public testing::TestWithParam<lcusim::LcuModel> {
  protected:
    void start(std::vector<lcusim::Fault> faults = {}) {
        const auto found = lcusim::findTool(TARVIK_SOURCE_DIR "/data/tools", "K417");
        ASSERT_TRUE(found.tool) << found.problem;
        lcusim::SimulatorOptions options;
        options.model = GetParam();
        options.faults = std::move(faults);
        options.winch.startDepth = 12.34;
        engine.emplace(options, *found.tool, truth);
        bench.serial.connect(2, *engine);
        ASSERT_EQ(bench.search.LCU_Locate(12), SearchResult::found);
        setup.model = modelNamed(bench.link.model);
        setup.toolCode = "K417";
        setup.channels = 8;
        setup.factors.fill({.kind = 4, .factor = 0});
        setup.run.winchDepthFactor = bench.link.modelFactor;
    }

    lcusim::MemoryRecord truth;
    std::optional<lcusim::LcuEngine> engine;
    LinkBench<lcusim::SimulatedPort> bench;
    ScanSetup setup;
};

} // namespace

TEST_P(SimulatedLcu, AnswersTheCommands) {
    start();
    EXPECT_EQ(bench.link.model, traitsOf(GetParam()).name);
    EXPECT_EQ(bench.link.firmware, "4.07");
    EXPECT_EQ(bench.lcu.LCU_ToolFirmwareVersion(), "2.13");
    EXPECT_EQ(bench.lcu.LCU_getdepth(), 1234);
    EXPECT_EQ(bench.lcu.LCU_SetDepth(-12.5 * 100), -1250);
    EXPECT_EQ(bench.lcu.LCU_Reset(), LinkResult::good);
    EXPECT_EQ(bench.lcu.LCU_PowerOFF_Reset(), LinkResult::good);
    EXPECT_EQ(bench.lcu.LCU_Command("NONSENSE"), LinkResult::failed);
    EXPECT_EQ(bench.operatorSide.shown.back().front(), '!');
}

TEST_P(SimulatedLcu, ScansDecodeToWhatWasSampled) {
    start();
    ScanReader reader(bench.serial, bench.clock, bench.link);
    ScanState state;
    ScanDecoder decoder(bench.errors, bench.log, setup, state);
    ASSERT_EQ(bench.lcu.LCU_Command("TT10"), LinkResult::good);
    ASSERT_EQ(bench.lcu.sendPlain("V"), LinkResult::good);
    const std::int64_t until = bench.clock.tickMs() + 20'000;
    std::size_t previous = 0;
    while (bench.clock.tickMs() < until) {
        const ScanRead read = reader.read();
        if (read.kind == ScanRead::Kind::none) continue;
        ASSERT_EQ(read.kind, ScanRead::Kind::scan);
        ++state.scans;
        decoder.LCU_GetValues(read.bytes);
        if (state.scans <= 2) continue;
        ASSERT_GE(truth.scans().size(), static_cast<std::size_t>(state.scans));
        const lcusim::ScanRecord& sampled = truth.scans()[static_cast<std::size_t>(state.scans - 1)];
        EXPECT_NEAR(state.current.depth, sampled.depth, 0.02);
        EXPECT_EQ(state.current.scanTime, sampled.timeCount);
        EXPECT_NEAR(state.current.channels[1], sampled.readings[0], 200);
        EXPECT_EQ(state.current.status, setup.model->healthyStatus);
        EXPECT_EQ(state.carriedChannels, 8);
        previous = truth.scans().size();
    }
    EXPECT_GT(previous, 150U);
}

TEST_P(SimulatedLcu, FindsItsWayBackAfterATornScan) {
    start({lcusim::parseFault("short-scan@5").fault.value()});
    ScanReader reader(bench.serial, bench.clock, bench.link);
    bench.lcu.LCU_Command("TT50");
    bench.lcu.sendPlain("V");
    std::vector<ScanRead::Kind> kinds;
    while (kinds.size() < 8) {
        const ScanRead read = reader.read();
        if (read.kind != ScanRead::Kind::none) kinds.push_back(read.kind);
    }
    using enum ScanRead::Kind;
    EXPECT_EQ(kinds, (std::vector{scan, scan, scan, scan, timeout, scan, scan, scan}));
}

INSTANTIATE_TEST_SUITE_P(BothModels, SimulatedLcu,
                         testing::Values(lcusim::LcuModel::lcu2Plus, lcusim::LcuModel::lcu4));
