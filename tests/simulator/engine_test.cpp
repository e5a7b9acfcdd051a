#include "bench.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lcusim::test {

namespace {

SimulatorOptions box(LcuModel model, bool gentle = true) {
    return {.model = model, .gentle = gentle};
}

} // namespace

TEST(Engine, AnswersTheStatusRequestOfEachModel) {
    Bench two(box(LcuModel::lcu2Plus));
    EXPECT_EQ(two.ask("Q", 300), (Bytes{'Q', 129}));
    Bench four(box(LcuModel::lcu4));
    EXPECT_EQ(four.ask("Q", 300), (Bytes{'Q', 145}));
}

TEST(Engine, ReportsACommandErrorOnceAndForgetsItOnStop) {
    Bench bench(box(LcuModel::lcu2Plus));
    for (const auto* wrong : {"BOGUS", "", "q", "X ", "TD5", "TD+", "TD+0", "TT", "TT0", "D12.5", "D 5",
                              "D+5", "ER0", "Q\r", "a1,", ",250"}) {
        EXPECT_EQ(bench.ask(wrong, 100), Bytes{}) << wrong;
        EXPECT_EQ(bench.status(), 129 + 64) << wrong;
        EXPECT_EQ(bench.status(), 129) << wrong;
        EXPECT_FALSE(bench.record.commands().at(bench.record.commands().size() - 3).understood) << wrong;
    }
    bench.ask(std::string(200, 'V'), 300);
    EXPECT_EQ(bench.status(), 193) << "an endless command is no command";
    bench.ask("BOGUS", 100);
    bench.ask("X", 100);
    EXPECT_EQ(bench.status(), 129);
}

TEST(Engine, KnowsTheCommandsThatPrepareATool) {
    for (const auto* good :
         {"MUX", "!", "I", "i", "IA1", "PA50", "OPEN", "H21,I21", "R11,S0", "f21,g21,h21,i21,a1,j21",
          "120,250", "TL120,250", "TT12.5", "TD-20", "ER0", "ER1", "ER30", "ER56", "D-120"}) {
        Bench bench(box(LcuModel::lcu4));
        bench.ask(good, 250);
        EXPECT_EQ(bench.status(), 145) << good;
    }
}

TEST(Engine, KeepsItsPromisesWhenUnkind) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SimulatorOptions options = box(LcuModel::lcu4, false);
        options.seed = seed;
        Bench bench(options);
        ASSERT_EQ(bench.ask("Q", 300).size(), 2U) << seed;
        ASSERT_EQ(bench.ask("D", 20).size(), 4U) << seed;
        const Bytes version = bench.ask("Y", 100);
        ASSERT_EQ(std::string(version.begin() + 1, version.end()), "4.07") << seed;
        ASSERT_EQ(bench.ask("y", 100).size(), 5U) << seed;
        EXPECT_EQ(bench.ask("", 500).size(), 0U) << "nothing trickles in later";
    }
}

TEST(Engine, DepthCounterIsInCentimetresAndCannotBeSetWhileDriven) {
    Bench bench(box(LcuModel::lcu4));
    bench.ask("D1234", 50);
    EXPECT_EQ(bench.ask("D", 20), (Bytes{'D', 0x00, 0x04, 0xD2}));
    bench.ask("D-1", 50);
    EXPECT_EQ(bench.ask("D", 20), (Bytes{'D', 0xFF, 0xFF, 0xFF}));
    bench.ask("D0", 50);
    bench.ask("V", 10'000);
    EXPECT_NEAR(bench.engine.depth(), 1.0, 0.01) << "6 m/min for ten seconds";
    bench.ask("D5000", 50);
    EXPECT_LT(bench.engine.depth(), 2.0);
}

TEST(Engine, SamplesByDepthAtEveryStepInTheCommandedDirection) {
    struct Case {
        LcuModel model;
        const char* command;
        int step;
    };
    for (const Case& c : {Case{LcuModel::lcu2Plus, "TD+5", 5}, Case{LcuModel::lcu4, "TD+20", 20},
                          Case{LcuModel::lcu4, "TD-20", -20}}) {
        Bench bench(box(c.model));
        bench.ask("D1000", 50);
        bench.ask(c.command, 50);
        const auto scans = scansIn(bench.ask("V", 10'100));
        ASSERT_EQ(scans.size(), 20U) << c.command;
        const int start = c.model == LcuModel::lcu4 ? 4000 : 1000;
        for (int i = 0; i < 20; ++i)
            EXPECT_EQ(depthOf(scans[static_cast<std::size_t>(i)]), start + (i + 1) * c.step);
        EXPECT_NEAR(timeOf(scans.back()), 5000, 1) << "5 cm at 6 m/min";
    }
}

TEST(Engine, TakesNoScanWhileTheWinchRunsTheOtherWay) {
    SimulatorOptions options = box(LcuModel::lcu2Plus);
    options.winch.direction = -1;
    Bench bench(options);
    bench.ask("TD+5", 50);
    EXPECT_TRUE(bench.ask("V", 5'000).empty());
    EXPECT_LT(bench.engine.depth(), -0.4);
}

TEST(Engine, SamplesByTimeAndCountsPulsesOverTheSameTime) {
    SimulatorOptions options = box(LcuModel::lcu2Plus);
    options.winch.startDepth = 50;
    Bench bench(options);
    bench.ask("TT12.5", 50);
    const auto scans = scansIn(bench.ask("V", 60'000));
    ASSERT_NEAR(static_cast<double>(scans.size()), 480, 1);
    double counts = 0;
    double expected = 0;
    for (std::size_t i = 0; i < scans.size(); ++i) {
        ASSERT_EQ(timeOf(scans[i]), 1250);
        counts += scans[i][6] << 8 | scans[i][7];
        expected += bench.record.scans()[i].readings[0] * 0.125;
    }
    EXPECT_GT(expected, 2000);
    EXPECT_NEAR(counts, expected, 4 * std::sqrt(expected));
}

TEST(Engine, TimeCountStopsAtItsEndAndThePulsesWithIt) {
    Bench bench(box(LcuModel::lcu2Plus));
    bench.ask("TT2000", 50);
    bench.ask("V", 20'100);
    const ScanRecord& scan = bench.record.scans().at(0);
    EXPECT_EQ(scan.timeCount, 65535);
    const double counts = scan.bytes[6] << 8 | scan.bytes[7];
    EXPECT_NEAR(counts, scan.readings[0] * 6.5535, 6 * std::sqrt(scan.readings[0] * 6.5535));
}

TEST(Engine, PowerOffForgetsTheSampling) {
    Bench bench(box(LcuModel::lcu2Plus));
    bench.ask("TT10", 50);
    bench.ask("P", 250);
    EXPECT_EQ(scansIn(bench.ask("V", 1'900)).size(), 3U) << "half a second each";
}

TEST(Engine, FinishesTheScanUnderWayAfterStop) {
    Bench bench(box(LcuModel::lcu2Plus));
    bench.ask("TT2", 50); // 20 ms: more than 9600 baud carries, so scans are queued
    bench.ask("V", 1'003);
    const Bytes before = bench.host.bytes;
    const Bytes after = bench.ask("X", 500);
    Bytes all = before;
    all.insert(all.end(), after.begin(), after.end());
    const auto scans = scansIn(all);
    EXPECT_EQ(scans.size() * 16, all.size()) << "whole scans only";
    EXPECT_LT(after.size(), 40U);
    EXPECT_FALSE(bench.engine.streaming());
    EXPECT_EQ(bench.status(), 129);
}

TEST(Engine, RecordsEveryScanWithTheBytesThatWentOut) {
    for (const bool gentle : {true, false}) {
        SimulatorOptions options = box(LcuModel::lcu4, gentle);
        Bench bench(options);
        bench.ask("TT10", 50);
        bench.ask("V", 30'000);
        Bytes sent;
        std::int64_t number = 0;
        for (const ScanRecord& scan : bench.record.scans()) {
            EXPECT_EQ(scan.number, ++number);
            EXPECT_EQ(scan.fate, ScanFate::sent);
            sent.insert(sent.end(), scan.bytes.begin(),
                        scan.bytes.begin() + static_cast<std::ptrdiff_t>(scan.size));
        }
        EXPECT_GT(number, 250);
        const auto tail = bench.host.bytes.size() - sent.size();
        EXPECT_LT(tail, 21U) << "a scan still under way";
        EXPECT_TRUE(std::equal(sent.begin(), sent.end(), bench.host.bytes.begin()));
    }
}

TEST(Engine, LosesWhatItsQueueCannotHold) {
    for (const bool gentle : {true, false}) {
        SimulatorOptions options = box(LcuModel::lcu2Plus, gentle);
        options.transmitQueue = 40;
        Bench bench(options);
        bench.ask("TT1", 50);
        bench.ask("V", 2'000);
        bench.ask("X", 500);
        int damaged = 0;
        int dropped = 0;
        for (const ScanRecord& scan : bench.record.scans()) {
            damaged += scan.fate == ScanFate::damaged;
            dropped += scan.fate == ScanFate::dropped;
        }
        EXPECT_EQ(damaged > 0, !gentle);
        EXPECT_GT(dropped, gentle ? 50 : 0);
    }
}

TEST(Engine, TheFirstTwoScansAfterPowerUpAreRubbishUnlessGentle) {
    Bench bench(box(LcuModel::lcu2Plus, false));
    bench.ask("TT10", 50);
    bench.ask("V", 600);
    const auto& scans = bench.record.scans();
    ASSERT_GE(scans.size(), 4U);
    EXPECT_NE(scans[0].timeCount, 1000);
    EXPECT_NE(scans[1].timeCount, 1000);
    EXPECT_EQ(scans[2].timeCount, 1000);
    bench.ask("X", 300);
    bench.ask("V", 300);
    EXPECT_EQ(scans.back().timeCount, 1000) << "the tool stayed up";
}

TEST(Engine, SameSeedSameBytes) {
    const auto stream = [](std::uint64_t seed) {
        SimulatorOptions options = box(LcuModel::lcu4, false);
        options.seed = seed;
        Bench bench(options);
        return std::pair(bench.ask("V", 20'000), bench.host.times);
    };
    EXPECT_EQ(stream(7), stream(7));
    EXPECT_NE(stream(7), stream(8));
}

TEST(Engine, IsDeafAtTheWrongSpeed) {
    SimulatorOptions options = box(LcuModel::lcu4, false);
    options.onlyBaud = 115200;
    Bench bench(options);
    bench.engine.setHostSpeed(9600);
    EXPECT_EQ(bench.ask("Q", 300), Bytes{});
    bench.engine.setHostSpeed(115200);
    bench.ask("X", 100);
    bench.ask("X", 100);
    EXPECT_EQ(bench.status(), 145) << "two stops clear what the wrong speed left behind";
}

TEST(Engine, PacesBytesToTheLineRate) {
    Bench bench(box(LcuModel::lcu2Plus));
    bench.ask("D", 20);
    const auto& at = bench.host.times;
    ASSERT_EQ(at.size(), 4U);
    EXPECT_NEAR(static_cast<double>(at[3] - at[0]), 3 * 1041.67, 2);
    bench.engine.setHostSpeed(115200);
    bench.ask("D", 20);
    EXPECT_NEAR(static_cast<double>(at[3] - at[0]), 3 * 86.8, 2);
}

TEST(Engine, SingleScanOnRequest) {
    Bench bench(box(LcuModel::lcu2Plus));
    EXPECT_EQ(scansIn(bench.ask("U", 300)).size(), 1U);
    EXPECT_FALSE(bench.engine.streaming());
}

} // namespace lcusim::test
