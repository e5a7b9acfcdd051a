// The whole run: what reaches the file, the wire and the log, with a box in order and with one that fails.
#include "lcu/run_oracle.h"
#include "lcu/run_rig.h"

#include <gmock/gmock.h>

using namespace tarvik;
using namespace tarvik::test;
using Box = lcusim::LcuModel;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr std::size_t recordLength = 40; // two values

Bytes expected(const RunRig& rig) {
    return RunOracle(rig.order.setup, rig.options.model).records(rig.truth.scans());
}

/// The file holds the first scans that had to be kept, byte for byte, and no others.
void expectFirstScansOf(const Bytes& wanted, const Bytes& onFile, std::size_t scans) {
    ASSERT_EQ(onFile.size(), scans * recordLength);
    ASSERT_GE(wanted.size(), onFile.size());
    for (std::size_t i = 0; i < onFile.size(); ++i) {
        ASSERT_EQ(onFile[i], wanted[i]) << "scan " << i / recordLength << " byte " << i % recordLength;
    }
}

} // namespace

TEST(LoggingRun, TheFileHoldsTheScansThatTheBoxSent) {
    for (const Box model : {Box::lcu2Plus, Box::lcu4}) {
        for (const Sampling sampling : {Sampling::depth, Sampling::time}) {
            for (const Direction direction : {Direction::down, Direction::up}) {
                for (const DepthUnits units : {DepthUnits::metres, DepthUnits::feet}) {
                    SCOPED_TRACE(std::string(lcusim::traitsOf(model).name) +
                                 std::string(samplingText(sampling)) + std::string(directionText(direction)));
                    RunRig rig({.model = model, .winchDirection = direction == Direction::up ? -1 : 1});
                    rig.order.setup.sampling = sampling;
                    rig.order.setup.interval = sampling == Sampling::time ? 0.25F : 5;
                    rig.order.setup.direction = direction;
                    rig.order.setup.units = units;
                    rig.order.setup.magneticMarker = 70'000;
                    rig.view.stopAfterKept = 60;
                    ASSERT_EQ(rig.startLogging(), RunResult::finished);
                    expectFirstScansOf(expected(rig), rig.scansOnFile(), 60);
                    EXPECT_THAT(rig.faultLines(), IsEmpty());
                    EXPECT_THAT(rig.reports.lines, IsEmpty());
                }
            }
        }
    }
}

TEST(LoggingRun, HeadAndClosingLines) {
    RunRig rig({.model = Box::lcu4});
    rig.order.setup.units = DepthUnits::feet;
    rig.startLogging();
    const Lines said = rig.runLines();
    ASSERT_EQ(said.size(), 15U);
    EXPECT_THAT(Lines(said.begin(), said.begin() + 11),
                ElementsAre("1============ NEW logging run ============", "1Project : Northern",
                            "1File : H1_K215_01.kvx", "1Start run with tool Guard resistivity and gamma",
                            "1Tool identifier K215  Serial number S-1", "1Winch used Portable winch, 300 m",
                            "1Screen scale being used 1:200", "0LCU powered down OK",
                            "0LCU firmware version : 4.07", "0Tool firmware version : 2.13",
                            "0LCU powered down OK"));
    // From 50.00 m on, a scan each 5 cm: the third sets the depth, 4 to 15 are kept.
    EXPECT_EQ(said[11], "1Logging run finished - time elapsed 0.1 mins");
    EXPECT_EQ(said[12], "0Depth range on file 164.70 to 166.50");
    EXPECT_TRUE(said[13].starts_with("0Average logging speed ")) << said[13];
    EXPECT_EQ(said[14], "0Depth range tripped by tool 164.53 to 166.50");
    EXPECT_THAT(rig.view.prompts, ElementsAre("START WINCH WHEN THIS|MESSAGE DISAPPEARS", "|", "|"));
    EXPECT_TRUE(rig.view.enabled && rig.view.ended);
    EXPECT_FALSE(rig.view.record || rig.state.logging || rig.link.acquiring);
    EXPECT_EQ(rig.state.mode, "ACQUIRE");
    EXPECT_EQ(rig.view.written, 12);
    EXPECT_EQ(rig.view.depthsShown, rig.view.currentsShown);
    EXPECT_EQ(rig.files.read("project/Backup/H1_K215_01.kvx"), rig.files.read(rig.file()));
    EXPECT_NE(rig.files.text("project/H1_notes.kvx").find("12 scans written\r\n"), std::string::npos);
}

TEST(LoggingRun, WithoutRecordingNothingIsWritten) {
    RunRig rig;
    rig.view.record = false;
    EXPECT_EQ(rig.startLogging(), RunResult::notStarted); // the operator says no
    EXPECT_EQ(rig.heard(), "");
    EXPECT_THAT(rig.operatorSide.shown,
                testing::Contains("*Warning: You currently have recording mode set to OFF.  No data will be "
                                  "written to file.  Is this OK ? "));
    rig.operatorSide.answer = Answer::yes;
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_THAT(rig.files.list("project"), IsEmpty());
    const Lines said = rig.runLines();
    EXPECT_EQ(std::ranges::count(said, "2NOTE : Data NOT saved to file"), 2);
    EXPECT_EQ(said[2], "2NOTE : Data NOT saved to file");
    EXPECT_EQ(said[8], "2NOTE : Data NOT saved to file");
    EXPECT_EQ(*(said.end() - 2), "0NOTE : No data scans written to file.");
    EXPECT_THAT(rig.view.states, ElementsAre(KeepingState::notRecording));
}

TEST(LoggingRun, RefusesBeforeAnythingIsSent) {
    const auto refusal = [](const std::function<void(RunRig&)>& spoil, const RigOptions& options = {}) {
        RunRig rig(options);
        spoil(rig);
        rig.operatorSide.shown.clear();
        EXPECT_EQ(rig.startLogging(), RunResult::notStarted);
        EXPECT_EQ(rig.heard(), "");
        EXPECT_TRUE(rig.view.enabled);
        return rig.operatorSide.shown.empty() ? "" : rig.operatorSide.shown.back();
    };
    const auto nothing = [](RunRig&) {};
    EXPECT_EQ(refusal(nothing, {.tool = "K521"}),
              "!Sonic tool compatability: The SONIC tool will only operate with\r\na LCU4 control box.");
    EXPECT_EQ(refusal(nothing, {.model = Box::lcu4, .tool = "K521"}).substr(0, 12), "!Sonic tool:");
    EXPECT_EQ(refusal([](RunRig& rig) { rig.order.hole = "H/1"; }).substr(0, 11), "!Hole name:");
    EXPECT_EQ(refusal([](RunRig& rig) { rig.link.model.clear(); }).substr(0, 5), "!LCU:");
    EXPECT_EQ(refusal([](RunRig& rig) { rig.link.demo = true; }).substr(0, 14), "!Demonstration");
    EXPECT_EQ(refusal([](RunRig& rig) { rig.equipment.currentTool() = {}; }).substr(0, 6), "!Tool:");
    const auto noWinch = [](RunRig& rig) {
        rig.equipment.ToolWinchData_loadcurrentttoolwinch({rig.options.tool, ""}, {"W999", ""}, 1);
    };
    EXPECT_EQ(refusal(noWinch).substr(0, 7), "!Winch:");
}

TEST(LoggingRun, AStepThatTheBoxCannotMakeIsSaid) {
    RunRig rig;
    rig.order.setup.interval = 12.5F;
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_THAT(rig.runLines(),
                testing::Contains("2The LCU2Plus samples every 13 cm, not every 12.5 cm as set. "
                                  "Choose an interval that it can step by."));
}

TEST(LoggingRun, CommandsOnTheWire) {
    const struct {
        RigOptions rig;
        const char* sampling;
        const char* tool;
    } cases[]{
        {{}, "TD+5", "MUX Q L120,250 Q ! Q i Q"},
        {{.mode = 2}, "TD+5", "L120,250 Q ! Q I Q"},
        {{.model = Box::lcu4}, "TD+20", "ER0 Q MUX Q L120,250 Q ! Q i Q"},
        {{.tool = "K306"}, "TD+5", "MUX Q L100,250 Q ! Q i Q PA50 Q"},
        {{.tool = "K551"}, "TD+5", "MUX Q L120,250 Q ! Q i Q"},
        {{.model = Box::lcu4, .tool = "K551"}, "TD+20", "ER0 Q R11,S0 Q MUX Q L120,250 Q ! Q i Q"},
        // Its third channel has no factor in the text: a plain level, and with it four times "ER30".
        {{.model = Box::lcu4, .tool = "K553"},
         "TD+20",
         "ER0 Q R11,S0 Q MUX Q L120,250 Q ! Q i Q ER30 Q ER30 Q ER30 Q ER30 Q"},
    };
    for (const auto& wire : cases) {
        RunRig rig(wire.rig);
        rig.view.stopAfterKept = 0;
        EXPECT_EQ(rig.startLogging(), RunResult::finished);
        const std::string off = wire.rig.model == Box::lcu4 ? "X Q P Q ER0 Q Q" : "X Q P Q Q";
        EXPECT_EQ(rig.heard(), off + " " + wire.sampling + " Q " + wire.tool + " y V " + off);
        EXPECT_EQ(*(rig.runLines().end() - 2), "0NOTE : No data scans written to file.");
    }
    RunRig plain;
    ToolRecord& record = plain.equipment.currentTool().record;
    record.set(tool::kind(1), "");
    record.set(tool::parameter(1, 1), "OPEN");
    record.set(tool::parameter(7, 1), "PA50");
    plain.order.setup = {.sampling = Sampling::time, .interval = 0.5F, .direction = Direction::up};
    plain.view.stopAfterKept = 0;
    plain.startLogging();
    EXPECT_EQ(plain.heard(), "X Q P Q Q TT50 Q OPEN Q PA50 Q y V X Q P Q Q");
}

TEST(LoggingRun, ACommandThatFailsEndsTheStartWithTheClosingSteps) {
    RunRig rig;
    rig.equipment.currentTool().record.set(tool::parameter(3, 1), "BOGUS");
    EXPECT_EQ(rig.startLogging(), RunResult::failed);
    EXPECT_EQ(rig.heard(), "X Q P Q Q TD+5 Q MUX Q L120,250 Q ! Q i Q BOGUS Q X Q P Q Q");
    EXPECT_FALSE(rig.files.exists(rig.file()));
    EXPECT_EQ(rig.operatorSide.shown.back(),
              "?Communications error: Problems sending this command to LCU > BOGUS\r\nError : 193");
    EXPECT_THAT(rig.runLines(), testing::Contains("1Logging run finished - time elapsed 0.0 mins"));
}

TEST(LoggingRun, StoppedWhileTheBoxIsPreparedItIsPoweredDownAndLeavesNoFile) {
    RunRig rig;
    rig.view.stopBeforeStreamMs = rig.clock.tickMs() + 2000;
    EXPECT_EQ(rig.startLogging(), RunResult::failed);
    EXPECT_EQ(rig.heard(), "X Q P Q Q TD+5 Q MUX Q X Q P Q Q");
    EXPECT_FALSE(rig.files.exists(rig.file()));
    EXPECT_THAT(rig.runLines(), testing::Contains("0Stopped before the first scan, nothing was written"));
}

TEST(LoggingRun, FactorsOfTheResistivityToolAndItsConstant) {
    RunRig rig({.tool = "K240"});
    rig.startLogging();
    const std::array<int, 7> kinds{2, 2, 2, 2, 1, 2, 0};
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(rig.equipment.currentTool().factors[i + 1].kind, kinds[i]) << i;
    const Bytes scans = rig.scansOnFile();
    ASSERT_EQ(scans.size(), 12U * 60);
    EXPECT_EQ(readI32le(&scans[12 + 4 * 6]), 10'000); // 100.0
}

TEST(LoggingRun, FaultsAreSaidAndTheRunGoesOn) {
    const struct {
        const char* fault;
        Lines said;
    } cases[]{
        {"short-scan@10",
         {"2Time-out waiting for remainder of chars in buffer", "2Elapsed waiting time 0.2"}},
        {"zero-length@10",
         {"2Buffer overflow type 1 acquiring LCU data", "2Expected -1 chars.  Rec'd 0 chars"}},
        {"extra-bytes@10",
         {"2Buffer overflow type 2 acquiring LCU data", "2Expected 11 chars.  Rec'd 18 chars"}},
        {"wrong-channels@10x3",
         {"2Unexpected number channels of data from LCU = 3",
          "2Contact BRENNA - possible problems with Tool/Winch file"}},
        {"empty-scan@10", {"2Problems deciphering data from LCU"}},
        {"zero-scan-time@10", {}},
        {"over-current@10=160", {}}, // the maximum itself
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fault);
        RunRig rig({.faults = {c.fault}});
        rig.order.setup.sampling = Sampling::time;
        rig.order.setup.interval = 0.5F;
        rig.view.stopAfterKept = 20;
        EXPECT_EQ(rig.startLogging(), RunResult::finished);
        EXPECT_EQ(rig.faultLines(), c.said);
        expectFirstScansOf(expected(rig), rig.scansOnFile(), 20);
    }
}

TEST(LoggingRun, AScanShorterThanItsFixedFieldsIsForeign) {
    RunRig rig({.faults = {"empty-scan@10=5"}});
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_THAT(rig.faultLines(), ElementsAre("2Unexpected number channels of data from LCU = -1",
                                              "2Contact BRENNA - possible problems with Tool/Winch file"));
    EXPECT_EQ(rig.view.written, 12);
}

TEST(LoggingRun, TooMuchCurrentShutsTheToolDown) {
    RunRig rig({.faults = {"over-current@10=161"}});
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_THAT(rig.faultLines(),
                ElementsAre("2Tool current was 161 ma", "2Exceeds factory recommended maximum of 160 ma",
                            "2Tool shut down."));
    expectFirstScansOf(expected(rig), rig.scansOnFile(), 6); // scans 4 to 9
    EXPECT_TRUE(rig.heard().ends_with("V X Q P Q Q"));
}

TEST(LoggingRun, AJumpOfAMetreKeepsNoFurtherScanAndIsSaid) {
    RunRig rig({.faults = {"depth-jump@10=100"}});
    rig.view.stopAfterMs = 30'000;
    rig.startLogging();
    expectFirstScansOf(expected(rig), rig.scansOnFile(), 6);
    EXPECT_THAT(rig.view.states, ElementsAre(KeepingState::depthJump));
}

TEST(LoggingRun, EndsWithTheScanThatReachesTheEnd) {
    for (const Direction direction : {Direction::down, Direction::up}) {
        RunRig rig;
        RunSetup& setup = rig.order.setup;
        setup.direction = direction;
        setup.limitsOverride = false;
        setup.topDepth = 49;
        setup.bottomDepth = 51;
        setup.endDistance = 0.5;
        rig.view.stopAfterKept = 1000;
        rig.startLogging();
        // Kept from 0.20 m on, each 5 cm; 0.50 m left is not yet less than 0.5.
        const bool isDown = direction == Direction::down;
        const Bytes scans = rig.scansOnFile();
        EXPECT_EQ(readI32le(&scans[scans.size() - recordLength]), isDown ? 50'550 : 49'450);
        EXPECT_EQ(
            rig.operatorSide.shown.back(),
            isDown ? "?End of the interval: End of the interval to 51.00 reached at 50.55. The run has been "
                     "ended. Stop the winch."
                   : "?End of the interval: End of the interval to 49.00 reached at 49.45. The run has been "
                     "ended. Stop the winch.");
        expectFirstScansOf(expected(rig), scans, 8);
    }
}

/// The scans are written, but a reader takes such depths for none: in feet from 610 m on.
TEST(LoggingRun, DepthsThatAreNoneInTheFileAreNotShownAsRecorded) {
    for (const auto& [units, start, shown] : {std::tuple{DepthUnits::feet, 609.4, KeepingState::tooDeep},
                                              {DepthUnits::metres, 609.4, KeepingState::kept}}) {
        RunRig rig({.startDepth = start});
        rig.order.setup.units = units;
        rig.view.stopAfterKept = 10;
        EXPECT_EQ(rig.startLogging(), RunResult::finished);
        EXPECT_EQ(rig.view.written, 10);
        EXPECT_EQ(rig.view.states.empty() ? KeepingState::kept : rig.view.states.back(), shown);
        const auto read = rig.reader.Tarvikfileopen(rig.file());
        ASSERT_TRUE(read);
        EXPECT_EQ(read->skippedScans > 0, shown == KeepingState::tooDeep);
    }
}

/// What the lamp of the main screen is told, each change once.
struct LostWatcher final : LinkWatcher {
    void linkChanged(const LinkState& link) override {
        const std::string now = link.lost ? "lost " : "ready ";
        if (!seen.ends_with(now)) seen += now;
    }
    std::string seen;
};

TEST(LoggingRun, ABoxThatFallsSilentByTimeIsLostAStandingWinchIsNot) {
    for (const bool byTime : {true, false}) {
        RunRig rig({.faults = {byTime ? "silence@12=0" : "stall@12=0"}});
        if (byTime) {
            rig.order.setup.sampling = Sampling::time;
            rig.order.setup.interval = 0.4F;
        }
        LostWatcher lamp;
        rig.lcu.setWatcher(&lamp);
        rig.view.stopAfterKept = 100;
        rig.view.stopAfterMs = 20'000;
        rig.startLogging();
        EXPECT_EQ(lamp.seen.find("lost") != std::string::npos, byTime);
        EXPECT_THAT(rig.view.states, Contains(KeepingState::noScans));
    }
}

TEST(LoggingRun, CommunicationsLostAndBack) {
    RunRig rig({.faults = {"hang-up@12=3200"}});
    rig.order.setup.sampling = Sampling::time;
    rig.order.setup.interval = 0.4F; // the retries fall between two scans
    rig.view.stopAfterKept = 20;
    LostWatcher lamp;
    rig.lcu.setWatcher(&lamp);
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_EQ(lamp.seen, "ready lost ready ") << "the box is not shown as ready while its line is lost";
    EXPECT_THAT(rig.faultLines(), ElementsAre("2Communications lost", "1Communications re-established"));
    EXPECT_EQ(rig.view.states.front(), KeepingState::communicationsLost);
    EXPECT_EQ(rig.view.states.back(), KeepingState::kept);
    const Bytes wanted = expected(rig);
    const Bytes onFile = rig.scansOnFile();
    ASSERT_EQ(onFile.size(), 20 * recordLength);
    // Eight before the loss. Of those after it some came before the port was open again.
    EXPECT_TRUE(std::equal(onFile.begin(), onFile.begin() + 8 * recordLength, wanted.begin()));
    EXPECT_FALSE(std::ranges::search(wanted, std::span(onFile).subspan(8 * recordLength)).empty());
}

TEST(LoggingRun, ASilentBoxThatCameBackIsToldToStreamAgain) {
    RunRig rig({.faults = {"hang-up@12=4000", "power-cut@12=2000"}});
    rig.view.stopAfterKept = 20;
    rig.view.stopAfterMs = 25'000; // it does not take half a minute
    LostWatcher lamp;
    rig.lcu.setWatcher(&lamp);
    std::string inTheRun;
    rig.view.atPass = [&] { inTheRun = lamp.seen; };
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    EXPECT_TRUE(rig.heard().find(" V TD+5 Q V X Q") != std::string::npos) << rig.heard();
    EXPECT_THAT(rig.faultLines(), ElementsAre("2Communications lost", "1Communications re-established"));
    EXPECT_EQ(inTheRun, "ready lost ready ");
    EXPECT_EQ(rig.view.written, 20);
    // Of a stream that starts afresh the first two scans have no values and the third is where sampling
    // starts.
    const Bytes onFile = rig.scansOnFile();
    const auto& scans = rig.truth.scans();
    const auto sent = [](const lcusim::ScanRecord& scan) { return scan.fate == lcusim::ScanFate::sent; };
    const auto last = std::find_if_not(scans.rbegin(), scans.rend(), sent);
    ASSERT_NE(last, scans.rend());
    for (int nth = 0; nth < 5; ++nth) {
        const std::int32_t millimetres = last.base()[nth].depthCount * 10;
        int found = 0;
        for (std::size_t at = 0; at < onFile.size(); at += recordLength)
            found += readI32le(&onFile[at]) == millimetres;
        EXPECT_EQ(found, nth < 3 ? 0 : 1) << "scan " << nth + 1 << " of the second stream";
    }
}

TEST(LoggingRun, ADepthFarOffAfterALossEndsTheRun) {
    for (const auto& [centimetres, believed] : {std::pair{"400", true}, std::pair{"600", false}}) {
        RunRig rig({.faults = {"hang-up@12=2800", std::string("depth-jump@12=") + centimetres}});
        rig.order.setup.sampling = Sampling::time;
        rig.order.setup.interval = 0.4F; // the retries fall between two scans
        rig.view.stopAfterKept = 20;
        EXPECT_EQ(rig.startLogging(), RunResult::finished);
        EXPECT_EQ(rig.faultLines().size(), believed ? 2U : 3U) << testing::PrintToString(rig.faultLines());
        EXPECT_EQ(rig.view.written, believed ? 20 : 8);
        EXPECT_TRUE(rig.heard().ends_with("X Q P Q Q"));
    }
}

TEST(LoggingRun, AFullDiskCostsNoScan) {
    RunRig rig;
    rig.view.stopAfterKept = 30;
    rig.view.atPass = [&] {
        if (rig.view.kept == 5) rig.files.failWritesAfter = 0;
        if (rig.view.kept == 15) rig.files.failWritesAfter = std::numeric_limits<std::uint64_t>::max();
    };
    EXPECT_EQ(rig.startLogging(), RunResult::finished);
    expectFirstScansOf(expected(rig), rig.scansOnFile(), 30);
    EXPECT_THAT(rig.view.states, ElementsAre(KeepingState::writeFailed, KeepingState::kept));
    EXPECT_THAT(
        rig.runLines(),
        testing::IsSupersetOf({"2H1_K215_01.kvx: the run file cannot be written; scans are held until it can",
                               "0H1_K215_01.kvx is being written again"}));
    EXPECT_EQ(rig.view.written, 30);

    RunRig full;
    full.view.atPass = [&] {
        if (full.view.kept == 5) full.files.failWritesAfter = 0;
    };
    EXPECT_EQ(full.startLogging(), RunResult::failed);
    EXPECT_EQ(full.view.written, 5);
    EXPECT_EQ(full.faultLines().back(), "2"
                                        "7 scans could not be written to project/H1_K215_01.kvx");
    EXPECT_THAT(full.operatorSide.shown, testing::Contains(testing::HasSubstr("Try again?")));

    RunRig freed;
    freed.view.atPass = [&] {
        if (freed.view.kept == 5) freed.files.failWritesAfter = 0;
    };
    freed.operatorSide.answer = Answer::yes;
    freed.operatorSide.whenAsked = [&] { freed.files.failWritesAfter = 1000; };
    EXPECT_EQ(freed.startLogging(), RunResult::finished);
    EXPECT_EQ(freed.view.written, 12);
}

/// The folder may not be written any more, or the file has gone: the rest is a run of its own somewhere else.
TEST(LoggingRun, ScansThatTheRunFileDoesNotTakeAreSavedElsewhere) {
    for (const auto& [gone, where] :
         {std::pair(false, "rescue/Rescued_H1_K215_01.kvx"), {true, "project/Rescued_H1_K215_01.kvx"}}) {
        RunRig rig;
        rig.order.rescueFolders = {"project", "rescue"};
        rig.view.atPass = [&] {
            if (rig.view.kept != 5) return;
            gone ? rig.files.remove(rig.order.projectFolder / "H1_K215_01.kvx")
                 : void(rig.files.readOnly.insert("project"));
        };
        EXPECT_EQ(rig.startLogging(), RunResult::failed);
        Lines said{"27 scans could not be written to project/H1_K215_01.kvx; they are in " +
                   std::string(where) + ", as a run of their own"};
        if (gone)
            said.push_back("2project/H1_K215_01.kvx has gone, with the 5 scans that were written to it");
        EXPECT_THAT(rig.faultLines(), testing::IsSupersetOf(said));
        const auto rescued = rig.reader.Tarvikfileopen(where);
        ASSERT_TRUE(rescued);
        EXPECT_EQ(rescued->steps(), 7U);
        EXPECT_EQ(rescued->header.tool.code, "K215");
        EXPECT_EQ(rig.view.written, gone ? 0 : 5) << "what has gone with its file is not on file";
        const Path saved = where;
        EXPECT_TRUE(rig.files.exists(saved.parent_path() / "Backup" / saved.filename())) << where;
        EXPECT_THAT(rig.operatorSide.shown, testing::Each(testing::Not(testing::HasSubstr("Try again?"))));
    }
}

TEST(LoggingRun, AFolderThatMayNotBeWrittenIsSaidBeforeTheStream) {
    RunRig rig;
    rig.files.readOnly.insert("project");
    EXPECT_EQ(rig.startLogging(), RunResult::failed);
    EXPECT_TRUE(rig.heard().ends_with(" y X Q P Q Q")) << rig.heard();
    EXPECT_EQ(rig.operatorSide.shown.back().substr(0, 10), "?Run file:");

    rig.files.readOnly.clear();
    rig.view.record = true;
    rig.startLogging();
    rig.files.readOnly.insert("project");
    rig.view.record = true;
    rig.view.choice = RunChoice::append;
    EXPECT_EQ(rig.startLogging(), RunResult::failed);
    EXPECT_TRUE(rig.heard().ends_with(" y X Q P Q Q")) << rig.heard();
}

TEST(LoggingRun, AppendsOnARecordBorderWhereverTheLastRunWasKilled) {
    for (std::size_t cut = 0; cut < recordLength; ++cut) {
        RunRig rig;
        rig.view.stopAfterKept = 4;
        rig.startLogging();
        const Bytes whole = rig.files.read(rig.file());
        rig.files.truncate(rig.file(), whole.size() - cut);
        rig.view.record = true;
        rig.view.choice = RunChoice::append;
        ASSERT_EQ(rig.startLogging(), RunResult::finished);
        EXPECT_TRUE(rig.view.asked.starts_with("Tool has been run once so far on Monday, 13-Mar-2006 at "));
        const Bytes now = rig.files.read(rig.file());
        const std::size_t left = 26188 + (cut == 0 ? 4 : 3) * recordLength;
        ASSERT_EQ(now.size(), left + 4 * recordLength) << cut;
        EXPECT_TRUE(
            std::equal(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(left), now.begin()));
        expectFirstScansOf(expected(rig), {now.begin() + static_cast<std::ptrdiff_t>(left), now.end()}, 4);
    }
}

TEST(LoggingRun, AppendIsRefusedAtTheFirstDifference) {
    RunRig rig;
    rig.startLogging();
    const Bytes before = rig.files.read(rig.file());
    rig.view.choice = RunChoice::append;
    RunSetup& setup = rig.order.setup;
    const RunSetup same = setup;
    const auto refusal = [&] {
        rig.view.record = true;
        rig.operatorSide.shown.clear();
        EXPECT_EQ(rig.startLogging(), RunResult::notStarted);
        EXPECT_EQ(rig.heard(), "");
        EXPECT_TRUE(rig.view.enabled);
        EXPECT_EQ(rig.files.read(rig.file()), before);
        return rig.operatorSide.shown.back();
    };
    setup = {
        .sampling = Sampling::time, .interval = 6, .direction = Direction::up, .units = DepthUnits::feet};
    EXPECT_EQ(refusal(), "!Check previous run: Current depth units NOT the same as latest run file.\r\n"
                         "Change depth units if you wish to append data.");
    setup.units = same.units;
    EXPECT_EQ(refusal(), "!Check previous run: Current sampling interval NOT the same as latest run file.\r\n"
                         "Change sampling interval if you wish to append data.");
    setup.interval = same.interval;
    EXPECT_EQ(refusal(), "!Check previous run: Logging direction NOT the same as latest run file.\r\n"
                         "Change logging direction if you wish to append data.");
    setup.direction = same.direction;
    EXPECT_EQ(refusal().substr(0, 40), "!Check previous run: Sampling method NOT");
    setup.sampling = same.sampling;
    rig.equipment.currentTool().record.set(tool::channelName(1, 2), "Other");
    EXPECT_EQ(refusal().substr(0, 43), "!Check previous run: Tool mode or channels ");
    rig.equipment.currentTool().record.set(tool::channelName(1, 2), "");
    rig.order.hole = "H2"; // a channel without a name has the one that readers give it
    rig.view.record = true;
    rig.startLogging();
    EXPECT_EQ(readRunHeader(rig.files, rig.file()).header.channels[2].name, "Channel 2");
    rig.files.put(rig.file(), "no run file");
    rig.view.record = true;
    EXPECT_EQ(rig.startLogging(), RunResult::notStarted);
}
