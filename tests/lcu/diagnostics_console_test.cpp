// The console against the simulated box of both models, on the virtual clock.
#include "base/number_picture.h"
#include "lcu/command_history.h"
#include "lcu/console_rig.h"
#include "lcu/known_commands.h"

#include <cmath>

#include <gmock/gmock.h>

using namespace tarvik;
using namespace tarvik::test;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(DiagnosticsConsole, EveryKnownCommandGetsItsAnswerOnBothModels) {
    for (const auto model : bothModels) {
        for (const KnownCommand& known : knownCommands()) {
            SCOPED_TRACE(known.text);
            if (known.lcu4Only && model != lcusim::LcuModel::lcu4) continue;
            ConsoleRig rig({.model = model});
            rig.acquire(100, std::string(known.text));
            EXPECT_EQ(rig.heard().substr(0, known.text.size()), known.text);
            // Behind "V" and "U" scans get in the way of the status answer, as on the real line.
            if (known.text == "V" || known.text == "U") continue;
            EXPECT_EQ(rig.console.status(), model == lcusim::LcuModel::lcu4 ? 145 : 129);
            EXPECT_TRUE(rig.operatorSide.shown.empty() || rig.operatorSide.shown.back().front() != '!');
        }
        ConsoleRig unknown({.model = model});
        unknown.console.send("WHAT");
        EXPECT_THAT(unknown.lines.lines, Contains("2....Error - LCU Command error"));
        EXPECT_THAT(unknown.operatorSide.shown.back(), HasSubstr("Communications error"));
    }
}

TEST(DiagnosticsConsole, ABatchIsSentInOrderAndGoodCommandsAreNotLogged) {
    ConsoleRig rig;
    rig.acquire(3000, "  X \r\n\nQ\nV");
    EXPECT_EQ(rig.heard().substr(0, 9), "X Q Q V Q");
    EXPECT_THAT(rig.lines.lines, Not(Contains("0Command X sent to LCU2Plus OK.")));
    const Lines wanted{"0Sent status command", "1Data acquisition started", "0Data acquisition STOPPED"};
    auto from = rig.lines.lines.begin();
    for (const std::string& line : wanted) {
        from = std::find(from, rig.lines.lines.end(), line);
        ASSERT_NE(from, rig.lines.lines.end()) << line;
    }
    EXPECT_GT(rig.console.scans(), 2);
    EXPECT_FALSE(rig.engine->streaming()) << "the stop tells the box, too";
    EXPECT_FALSE(rig.link.acquiring);
    EXPECT_EQ(rig.shown.data, rig.console.dataLog().text());
}

TEST(DiagnosticsConsole, TheListMirrorsTheLogWhileTheConsoleIsOpen) {
    ConsoleRig rig;
    EXPECT_TRUE(rig.link.diagnosticsOpen);
    EXPECT_THAT(rig.console.statusList().front(), HasSubstr("\\b\\1Diagnostics mode activated"));
    rig.log.red("something");
    EXPECT_THAT(rig.console.statusList().back(), HasSubstr("\\b\\2something"));
    rig.console.comclearstatus();
    ASSERT_EQ(rig.shown.status.size(), 1U);
    EXPECT_EQ(rig.shown.status.front().substr(8), " \\B\\1 Status list cleared");
    rig.console.close();
    rig.log.black("unseen");
    EXPECT_FALSE(rig.link.diagnosticsOpen);
    EXPECT_EQ(rig.lines.lines.end()[-2], "1Diagnostics mode closed");
    EXPECT_THAT(rig.console.statusList().back(), HasSubstr("Diagnostics mode closed"));
}

TEST(DiagnosticsConsole, StatusBits) {
    EXPECT_EQ(statusBitsText(-1), "- - - - - - - -");
    EXPECT_EQ(statusBitsText(0), "- - - - - - - -");
    EXPECT_EQ(statusBitsText(145), "1 0 0 1 0 0 0 1");
    EXPECT_EQ(statusBitsText(2), "0 0 0 0 0 0 1 0");
}

TEST(DiagnosticsConsole, SetDepthAndWinchTest) {
    for (const auto model : bothModels) {
        ConsoleRig rig({.model = model});
        rig.console.cominitdepth(12.34);
        EXPECT_EQ(rig.heard(), "D1234 D");
        EXPECT_EQ(rig.lines.lines.back(), "0Depth successfully set to 12.34 metres");
        EXPECT_EQ(rig.console.depth(), 12.34);

        EXPECT_EQ(rig.console.winchTestCaption(), "RUN Winch test");
        rig.console.comwinchtest();
        EXPECT_EQ(rig.console.winchTestCaption(), "STOP Winch test");
        rig.truth.clear();
        for (int i = 0; i < 4; ++i) {
            rig.clock.advanceMs(DiagnosticsConsole::depthEveryMs);
            rig.console.tick();
            rig.console.tick(); // not due again
        }
        EXPECT_EQ(rig.heard(), "D D D D");
        EXPECT_EQ(rig.console.depth(), 12.34);
        rig.console.comwinchtest();
        EXPECT_EQ(rig.lines.lines.back(), "1Winch test stopped");
    }
    ConsoleRig broken({.faults = {"no-reply@c4x9", "short-reply@c4"}});
    broken.console.cominitdepth(3);
    EXPECT_NE(broken.lines.lines.back().find("check its power, the cable and the port"), std::string::npos);
    broken.console.comwinchtest();
    broken.clock.advanceMs(DiagnosticsConsole::depthEveryMs);
    broken.console.tick();
    EXPECT_EQ(broken.lines.lines.back(), "2Obtaining depth - failed !");
}

TEST(DiagnosticsConsole, OrdersDuringAnExchangeWaitAndAreServedInTheStream) {
    ConsoleRig rig;
    bool once = false;
    rig.whileWaiting = [&] {
        if (!std::exchange(once, true)) rig.console.send("TT50");
    };
    rig.console.send("Q");
    EXPECT_EQ(rig.heard(), "Q TT50 Q");

    bool sent = false;
    rig.whileWaiting = [&] {
        if (rig.console.scans() == 3 && !std::exchange(sent, true)) rig.console.send("X");
    };
    rig.truth.clear();
    rig.acquire(60'000);
    EXPECT_THAT(rig.heard(), HasSubstr("V Q X Q")) << "\"X\" ends the acquisition";
    EXPECT_EQ(rig.count("0Data acquisition STOPPED"), 1);
    EXPECT_LT(rig.clock.tickMs(), 30'000);
}

TEST(DiagnosticsConsole, ResetAndSearch) {
    ConsoleRig rig({.model = lcusim::LcuModel::lcu4});
    EXPECT_EQ(rig.console.clearToSend(), true);
    rig.console.comreset();
    EXPECT_EQ(rig.heard(), "X Q X Q Q");
    EXPECT_EQ(rig.lines.lines.back(), "0LCU reset OK");
    rig.console.comfindLCU();
    EXPECT_EQ(rig.searches, 1);
    EXPECT_EQ(rig.console.statusBits(), "1 0 0 1 0 0 0 1");
    rig.port.close();
    rig.clock.advanceMs(DiagnosticsConsole::depthEveryMs);
    rig.console.tick();
    EXPECT_EQ(clearToSendText(rig.console.clearToSend()), "");
    rig.operatorSide.shown.clear();
    for (const auto& order : std::initializer_list<std::function<void()>>{
             [&] { rig.console.send("V"); }, [&] { rig.console.comreset(); },
             [&] { rig.console.cominitdepth(1); }, [&] { rig.console.comwinchtest(); }}) {
        rig.lines.take();
        order();
        EXPECT_EQ(rig.lines.lines, Lines{"2No port is open - find the LCU first"});
    }
    EXPECT_TRUE(rig.operatorSide.shown.empty());
    EXPECT_FALSE(rig.console.acquiring() || rig.console.winchTestRuns());
}

TEST(DiagnosticsConsole, ScansShowCountsAndTheToolsValues) {
    for (const auto model : bothModels) {
        ConsoleRig rig({.model = model});
        rig.stopAfterScans = 5;
        rig.acquire(60'000, "TT50\nV");
        ASSERT_TRUE(rig.console.latestScan());
        const DiagnosticsScan& scan = *rig.console.latestScan();
        EXPECT_EQ(scan.channels, rig.equipment.currentTool().channels());
        EXPECT_TRUE(scan.toolFits);
        EXPECT_NEAR(scan.depth, rig.engine->depth(), 1.0);
        EXPECT_EQ(scan.status, model == lcusim::LcuModel::lcu4 ? 145 : 129);
        EXPECT_EQ(rig.console.depth(), scan.depth);
    }
}

TEST(DiagnosticsLog, HeadingFormatsAndLimit) {
    DiagnosticsScan scan;
    scan.depth = 12.345;
    scan.time = 5;
    scan.channels = 3;
    scan.counts[1] = 7;
    scan.counts[2] = 65535;
    scan.counts[3] = -12;
    scan.status = 145;
    scan.current = 60;
    DiagnosticsLog log;
    EXPECT_EQ(log.diag_logdata(scan), " Depth   Time  Chan1  Chan2  Chan3   Status/Current/Volt\r\n"
                                      "  12.35     05      7  65535    -12   145/60/0\r\n");
    EXPECT_EQ(log.diag_logdata(scan), DiagnosticsLog::line(scan)) << "the heading stands once";
    while (log.text().size() <= DiagnosticsLog::capacity)
        EXPECT_EQ(log.diag_logdata(scan), DiagnosticsLog::line(scan));
    EXPECT_EQ(log.diag_logdata(scan), "Log file FULL - please clear\r\n");
    for (int i = 0; i < 1000; ++i) log.diag_logdata(scan);
    EXPECT_LT(log.text().size(), 30'000U);
    log.clear();
    EXPECT_THAT(log.diag_logdata(scan), HasSubstr("Chan3"));
}

TEST(DiagnosticsText, StatusLinesMeaningsAndChannelRows) {
    const StatusLineParts parts = statusLineParts("09:00:00  \\B\\2a \\ b");
    EXPECT_EQ(parts.text, "09:00:00  a \\ b");
    EXPECT_TRUE(parts.bold);
    EXPECT_EQ(parts.colour, '2');
    EXPECT_EQ(statusLineParts("no codes").text, "no codes");
    EXPECT_EQ(statusMeaning(-1), "No status received");
    EXPECT_EQ(statusMeaning(145), "145 - healthy LCU4");
    EXPECT_EQ(statusMeaning(0xC3), "195 - has not got block, command error");
    EXPECT_EQ(statusMeaning(144), "144 - not a healthy LCU");

    ConsoleRig rig;
    rig.calibrate("Gamma", {1, 2});
    rig.stopAfterScans = 5;
    rig.acquire(60'000, "TT50\nV");
    const CurrentTool& tool = rig.equipment.currentTool();
    const DiagnosticsScan& scan = rig.console.latestScan().value();
    const auto rows = channelRows(tool, scan);
    EXPECT_EQ(rows[0].name, "Gamma");
    EXPECT_EQ(rows[0].count, std::to_string(scan.counts[1]));
    const double rate = std::nearbyint(scan.counts[1] * 10000.0 / scan.time);
    EXPECT_EQ(rows[0].value, shortestNumber(1 + 2 * rate));
    EXPECT_EQ(rows[1].value, "not calibrated");
    EXPECT_EQ(whyNoValues(tool, scan), "");
    EXPECT_EQ(whyNoValues({},
                          [&] {
                              DiagnosticsScan other = scan;
                              other.toolFits = false;
                              return other;
                          }()),
              "No tool is selected: counts only.");
}

TEST(CommandHistory, ArrowKeysGoBackAndComeForwardToWhatWasTyped) {
    CommandHistory history;
    EXPECT_EQ(history.older("dr"), "dr");
    for (const char* command : {"X", "Q", "Q"}) history.add(command);
    EXPECT_EQ(history.older("dr"), "Q");
    EXPECT_EQ(history.older("Q"), "X");
    EXPECT_EQ(history.older("X"), "X");
    EXPECT_EQ(history.newer("X"), "Q");
    EXPECT_EQ(history.newer("Q"), "dr");
    EXPECT_EQ(history.newer("dr"), "dr");
}
