// Search, commands and depth setting against the simulated box, which packs its own bytes.
#include "lcu/depth_setting.h"
#include "lcu/lcu_bench.h"
#include "simulator/simulated_port.h"
#include "simulator/tool_file.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

/// A deviation tool on a box at COM2, in a hole.
class SimulatedLcu : public testing::TestWithParam<lcusim::LcuModel> {
  protected:
    void start() {
        const auto found = lcusim::findTool(TARVIK_SOURCE_DIR "/data/tools", "K417");
        ASSERT_TRUE(found.tool) << found.problem;
        lcusim::SimulatorOptions options;
        options.model = GetParam();
        options.winch.startDepth = 12.34;
        engine.emplace(options, *found.tool, truth);
        bench.serial.connect(2, *engine);
        ASSERT_EQ(bench.search.LCU_Locate(12), SearchResult::found);
    }

    lcusim::MemoryRecord truth;
    std::optional<lcusim::LcuEngine> engine;
    LinkBench<lcusim::SimulatedPort> bench;
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

TEST_P(SimulatedLcu, SetsTheWinchDepthOnlyWhereTheBoxAgrees) {
    start();
    bench.lines.take();
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, -12.345),
              DepthSetting::done); // a tie goes to the even centimetre
    EXPECT_EQ(bench.lcu.LCU_getdepth(), -1234);
    EXPECT_EQ(bench.lines.lines, Lines{"0Depth successfully set to -12.34 metres"});
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, 20, 1.05), DepthSetting::done); // a drum that pays out more
    EXPECT_EQ(bench.lcu.LCU_getdepth(), 1905);
    EXPECT_EQ(bench.lines.lines.back(), "0Depth successfully set to 20.003 metres");
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, 83886.07), DepthSetting::done);
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, 83886.08),
              DepthSetting::outOfReach); // would come back as the other end
    EXPECT_EQ(bench.lines.lines.back(), "2Unable to set depth - 83886.08 metres is beyond the depth counter");
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, std::nan("")), DepthSetting::outOfReach);
    bench.lcu.sendPlain("V"); // the drum turns
    const std::string failed = "2Unable to set depth - is winch running ??";
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, 5), DepthSetting::otherDepth);
    EXPECT_EQ(bench.lines.lines.back(), failed);
    bench.serial.failNext("ComStatus", portGone, 9); // unplugged
    bench.lines.take();
    EXPECT_EQ(setWinchDepth(bench.lcu, bench.log, 5), DepthSetting::noAnswer);
    EXPECT_EQ(bench.lines.lines,
              (Lines{failed, "2No depth came back from the LCU - check its power, the cable and the port"}));
}

INSTANTIATE_TEST_SUITE_P(BothModels, SimulatedLcu,
                         testing::Values(lcusim::LcuModel::lcu2Plus, lcusim::LcuModel::lcu4));
