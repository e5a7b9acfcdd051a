// The parts of the run that are pure functions: texts sent, names of files, what may be appended, progress.
#include "lcu/append_check.h"
#include "lcu/logging_run.h"
#include "lcu/overflow_report.h"
#include "lcu/run_commands.h"
#include "lcu/run_names.h"
#include "lcu/run_progress.h"
#include "lcu/run_speed.h"
#include "platform/memory_files.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace tarvik;

TEST(RunCommands, SamplingInCountsOfTheModelAndHundredthsOfASecond) {
    RunSetup depth{.sampling = Sampling::depth, .interval = 5};
    EXPECT_EQ(samplingCommand(depth, *lcu2Plus), "TD+5");
    EXPECT_EQ(samplingCommand(depth, *lcu4), "TD+20");
    depth.direction = Direction::up;
    depth.interval = 2.5F;
    EXPECT_EQ(samplingCommand(depth, *lcu2Plus), "TD-3");
    EXPECT_EQ(samplingCommand(depth, *lcu4), "TD-10");
    EXPECT_EQ(roundedStep(depth, *lcu2Plus), 3);
    EXPECT_EQ(roundedStep(depth, *lcu4), std::nullopt);
    EXPECT_EQ(samplingCommand({.sampling = Sampling::time, .interval = 0.125F}, *lcu4), "TT12.5");
    for (int hundredths = 1; hundredths <= 10'000; ++hundredths) {
        const RunSetup time{.sampling = Sampling::time, .interval = static_cast<float>(hundredths / 100.0)};
        ASSERT_EQ(samplingCommand(time, *lcu2Plus), "TT" + std::to_string(hundredths));
    }
}

TEST(RunCommands, TheOtherCommandSetIsForFourToolsOnAnLcu4) {
    for (const auto& [code, other] : {std::pair{"K550", false}, std::pair{"K551", true},
                                      std::pair{"K554", true}, std::pair{"K555", false}}) {
        ToolRecord record = blankTool();
        record.set(tool::code, code);
        EXPECT_EQ(needsCommandSet(record, *lcu4), other) << code;
        EXPECT_FALSE(needsCommandSet(record, *lcu2Plus)) << code;
    }
}

TEST(RunCommands, TheOtherCommandSetChangesOnlyTheModesThatReadSo) {
    CurrentTool tool;
    ToolRecord& record = tool.record;
    record.set(tool::channelCount(2), 3);
    record.set(tool::sensorFactors(1), "H21");
    record.set(tool::sensorFactors(2), " H21,I21");
    tool.mode = 2;
    setToolCommands(record);
    EXPECT_EQ(record.get(tool::sensorFactors(1)), "H21");
    EXPECT_EQ(record.get(tool::sensorFactors(2)), "R11,S0");

    const auto energyPairs = [&](int mode) {
        std::string pairs;
        for (int pair = 1; pair <= tool::parameterPairs; ++pair)
            pairs += record.get(tool::parameter(pair, mode)) == "ER30" ? "E" : ".";
        return pairs;
    };
    tool.factors[4].kind = 4; // no channel of the mode
    setEnergyCommands(tool);
    EXPECT_EQ(energyPairs(2), ".......");
    tool.factors[3].kind = 4;
    setEnergyCommands(tool);
    EXPECT_EQ(energyPairs(2), "...EEEE");
    EXPECT_EQ(energyPairs(1), ".......");
}

TEST(RunNames, TheNextRunFollowsTheHighest) {
    MemoryFiles files;
    EXPECT_EQ(CheckLoggingRuns(files, "p", "H1", "K201").next(), 1);
    EXPECT_EQ(loggingRunsText({}), "");
    for (const auto* name : {"H1_K201_02.kvx", "H1_K201_09.kvx", "H1_K201_10.kvx", "H1_K201_.kvx",
                             "H1_K201_3a.kvx", "H1_K2011_44.kvx", "H11_K201_44.kvx", "H1_K201_44.las"})
        files.put(Path("p") / name, "");
    const LoggingRuns runs = CheckLoggingRuns(files, "p", "H1", "K201");
    EXPECT_EQ(runs.count, 3);
    EXPECT_EQ(runs.latestFile, Path("p/H1_K201_10.kvx"));
    EXPECT_EQ(runFileName("H1", "K201", runs.next()), "H1_K201_11.kvx");
    EXPECT_EQ(runFileName("H1", "K201", 1), "H1_K201_01.kvx");
    EXPECT_EQ(loggingRunsText(runs), "Tool has 3 runs so far, last run Monday, 13-Mar-2006 at 09:00");
}

TEST(AppendCheck, AChannelBehindTheNameSlotsReadsBackUnderAnotherName) {
    RunHeader current;
    current.channels.resize(21);
    RunFileInfo latest{.header = current, .shape = {.recordLength = 4 * 21 + 28}};
    latest.header.channels[20].name = "Channel 20";
    EXPECT_EQ(CheckLatestRunSpecs(current, latest), std::nullopt);
    latest.header.channels[19].name = "Other";
    EXPECT_NE(CheckLatestRunSpecs(current, latest), std::nullopt);
    latest.header = current;
    latest.shape.recordLength += 4;
    EXPECT_NE(CheckLatestRunSpecs(current, latest), std::nullopt);
    latest.shape.recordLength -= 4;
    latest.header.toolMode = 2;
    EXPECT_NE(CheckLatestRunSpecs(current, latest), std::nullopt);
    latest.header = current;
    latest.header.versionMajor = 1;
    latest.header.versionMinor = 99; // values in another scale
    EXPECT_NE(CheckLatestRunSpecs(current, latest), std::nullopt);
}

TEST(RunSpeed, IsNoneWhereScansAreMissing) {
    RunSpeed speed(0.095);
    speed.measure(10, 1000);
    speed.measure(10.05, 1000);
    EXPECT_NEAR(speed.metresPerMinute(), 30, 1e-9);
    speed.measure(10.95, 1000); // the time of one interval, the way of eighteen
    EXPECT_EQ(speed.metresPerMinute(), 0);
    speed.measure(11, 1000);
    EXPECT_NEAR(speed.metresPerMinute(), 30, 1e-9);
    speed.interrupt();
    speed.measure(11.05, 1000);
    EXPECT_EQ(speed.metresPerMinute(), 0);
}

TEST(RunSpeed, IsTheWayOverTheScansTimeWithoutSign) {
    RunSpeed speed;
    EXPECT_EQ(speed.movedTo(1000), 0);
    speed.measure(10, 10'000);
    EXPECT_EQ(speed.metresPerMinute(), 0);
    speed.measure(9.5, 10'000);
    EXPECT_DOUBLE_EQ(speed.metresPerMinute(), 30);
    speed.measure(9, 0);
    EXPECT_EQ(speed.metresPerMinute(), 0);
    EXPECT_EQ(speed.depth(), 9);
}

TEST(RunProgress, Texts) {
    const CivilTime now{.year = 2006, .month = 3, .day = 13, .hour = 23, .minute = 50};
    EXPECT_EQ(elapsedText(59.9), " Elapsed logging time 59 mins");
    EXPECT_EQ(elapsedText(60), " Elapsed logging time 1 hr 0 mins");
    EXPECT_EQ(elapsedText(125), " Elapsed logging time 2 hrs 5 mins");
    EXPECT_EQ(completionText({.remainingMinutes = 11.2}, Sampling::depth, now),
              " Finish in 12 mins at 00:02");
    EXPECT_EQ(completionText({}, Sampling::depth, now), " Time to completion unknown");
    EXPECT_EQ(completionText({}, Sampling::time, now), "");
    EXPECT_EQ(completionText({.elapsedMinutes = 20, .ended = true, .endTime = now}, Sampling::time, {}),
              " Completed 20 mins at 23:50");

    RunSetup setup{.limitsOverride = false, .topDepth = 10, .bottomDepth = 100, .endDistance = 5};
    EXPECT_EQ(remainingMinutes(setup, 55, 10), 4.0);
    EXPECT_EQ(remainingMinutes(setup, 99, 10), 0.0);
    EXPECT_EQ(remainingMinutes(setup, 55, 0), std::nullopt);
    setup.direction = Direction::up;
    EXPECT_EQ(remainingMinutes(setup, 55, 10), 4.0);
    setup.limitsOverride = true;
    EXPECT_EQ(remainingMinutes(setup, 55, 10), std::nullopt);
}

TEST(OverflowReport, ReadsTheScanThatFollowsBehindItsOwnLengthByte) {
    const std::vector<std::uint8_t> bytes{0, 4, 0xD2, 0, 100, 9, 9, /**/ 8, /**/ 0xFF, 0xFF, 0x9C, 1, 0};
    ScanSetup setup;
    setup.run = {.limitsOverride = false, .topDepth = 100, .bottomDepth = 200};
    const ScanRead read{.kind = ScanRead::Kind::overflow2, .bytes = bytes, .expected = 7, .received = 15};
    const BufferOverflow overflow = overflowReport(read, setup, 6);
    EXPECT_EQ(overflow.type, 2);
    EXPECT_FLOAT_EQ(static_cast<float>(overflow.first.depth), 12.34F);
    EXPECT_EQ(overflow.first.time, 100);
    ASSERT_TRUE(overflow.second);
    EXPECT_EQ(overflow.second->depth, -1);
    EXPECT_EQ(overflow.second->time, 256);
    EXPECT_FALSE(overflow.secondSensible); // 100 m above the top is the edge
    setup.run.topDepth = 99;
    EXPECT_TRUE(overflowReport(read, setup, 6).secondSensible);

    const BufferOverflow none = overflowReport({.kind = ScanRead::Kind::overflow1, .expected = -1}, setup, 6);
    EXPECT_EQ(none.type, 1);
    EXPECT_FALSE(none.second);
}

TEST(AcquisitionRing, RunsRoundAfterTwoThousandPoints) {
    AcquisitionRing ring;
    CurrentScan scan;
    for (int i = 0; i < 2001; ++i) {
        scan.depth = static_cast<float>(i);
        ring.add({scan.depth, static_cast<double>(i), scan.calibrated});
        if (i == 1999) {
            EXPECT_EQ(ring.fromOldest(0).depth, 0);
        }
    }
    EXPECT_EQ(ring.size(), 2000U);
    EXPECT_EQ(ring.fromOldest(0).depth, 1);
    EXPECT_EQ(ring.fromOldest(1999).depth, 2000);
}
