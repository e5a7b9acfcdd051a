// The console while the box, the line or the program itself fails, on the virtual clock.
#include "lcu/console_rig.h"

#include <tuple>

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

TEST(DiagnosticsFaults, MisbehavingBoxesAreSaidAndSurvived) {
    struct Case {
        std::string fault;
        std::string line; ///< in the log, once at least; empty: none is asked for
        long least = 20;
        bool ends = false;
    };
    const Case cases[] = {
        {"silence@5=8000", "2Time-out waiting for LCU data"},
        {"silence@5=8000", "2Communications lost"},
        {"silence@5=8000", "1Communications re-established"},
        {"zero-length@5", "0Too many characters in buffer : exit code 1 Expecting 0 Number chars in"},
        {"extra-bytes@5=20", "0Too many characters in buffer : exit code 2 Expecting"},
        {"empty-scan@5", "2Problems deciphering data from LCU"},
        {"empty-scan@5=6", "2Problems deciphering data from LCU"},
        {"short-scan@5x3", ""},
        {"slow-scan@5", ""},
        {"garbage@5x6=60", ""},
        {"wrong-channels@5x3", ""},
        {"power-cut@5", "2Communications lost", 1},
        {"hang-up@5", "2Communications lost", 1, true},
    };
    for (const auto model : bothModels) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.fault + " " + c.line);
            ConsoleRig rig({.model = model, .faults = {c.fault}});
            rig.acquire(20'000, "TT50\nV");
            const auto said = [&](const std::string& line) { return line.starts_with(c.line); };
            EXPECT_TRUE(std::ranges::any_of(rig.lines.lines, said))
                << testing::PrintToString(rig.lines.lines);
            EXPECT_EQ(rig.count("0Data acquisition STOPPED"), 1);
            EXPECT_EQ(rig.clock.tickMs() < rig.stopAt, c.ends) << "nothing else ends it";
            // Two scans a second but for the fault: the stream is found again each time.
            EXPECT_GE(rig.console.scans(), c.least);
            EXPECT_FALSE(rig.link.busy);
        }
    }
}

TEST(DiagnosticsFaults, StreamsTooFastToPauseAreReadAndFoundAgain) {
    struct Case {
        std::string fault;
        std::string line = {};
    };
    const Case cases[] = {{""},
                          {"short-scan@200"},
                          {"garbage@200=33"},
                          {"extra-bytes@200=20", "0Too many characters in buffer : exit code 2 Expecting"},
                          {"zero-length@200", "0Too many characters in buffer : exit code 1 Expecting 0"},
                          {"wrong-channels@200x20=2"},
                          {"empty-scan@200=3", "0Too many characters in buffer : exit code 2 Expecting"}};
    for (const auto model : bothModels) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.fault);
            ConsoleRig rig({.model = model, .faults = c.fault.empty() ? Lines{} : Lines{c.fault}});
            rig.acquire(10'000, "TT2\nV"); // 50 scans a second; the line is busy most of the time
            EXPECT_GE(rig.console.scans(), c.fault.empty() ? 430 : 350);
            const auto said = [&](const std::string& line) { return line.starts_with(c.line); };
            EXPECT_TRUE(std::ranges::any_of(rig.lines.lines, said))
                << testing::PrintToString(rig.lines.lines);
            EXPECT_EQ(rig.count("2Time-out waiting for LCU data"), 0);
            EXPECT_LT(rig.lines.lines.size(), 40U) << "a fast stream must not bury the status list";
        }
        ConsoleRig flooded({.model = model});
        flooded.acquire(10'000, "TT0.2\nV"); // the box has more than the line can carry
        EXPECT_EQ(flooded.count("0Data acquisition STOPPED"), 1);
        EXPECT_FALSE(flooded.engine->streaming());
    }
}

TEST(DiagnosticsFaults, ScansThatHavePiledUpAreAllReadAndTheOperatorIsServedMeanwhile) {
    LinkBench<ScriptedPort> bench;
    bench.link.port = 1;
    DiagnosticsAcquisition line(bench.serial, bench.log, bench.link);
    line.start();
    std::ignore = line.look();
    std::ignore = line.look();
    bench.serial.wire.clear();
    for (int i = 0; i < 400; ++i)
        bench.serial.put("\x0A"
                         "123456789");
    int scans = 0, looks = 0;
    while (scans < 400 && ++looks < 1000) scans += line.look() == DiagnosticsAcquisition::Look::scan ? 1 : 0;
    EXPECT_EQ(scans, 400);
    EXPECT_EQ(bench.lines.lines,
              Lines{"0Too many characters in buffer : exit code 2 Expecting 10 Number chars in 4000"});
    EXPECT_GE(std::ranges::count(bench.serial.wire, '<'), 400 / 6) << "sleeping serves the window";
}

TEST(DiagnosticsFaults, TheRestOfATornScanIsNotTakenForAnother) {
    LinkBench<ScriptedPort> bench;
    bench.link.port = 1;
    DiagnosticsAcquisition line(bench.serial, bench.log, bench.link);
    line.start();
    bench.serial.put("\x03"
                     "ab",
                     5); // begins like a scan; nothing waits yet at the first look
    bench.serial.put("\x04"
                     "xyz",
                     100);
    int looks = 0;
    while (line.look() != DiagnosticsAcquisition::Look::scan) ASSERT_LT(++looks, 20);
    EXPECT_EQ(std::string(line.bytes().begin(), line.bytes().end()), "xyz");
}

TEST(StreamHunt, FindsTheSpacingOfScansAndNeverGuesses) {
    const std::string scan = "\x0A"
                             "123456789";
    struct Case {
        std::string stream;
        std::size_t length, begun; ///< 0: nothing is found
    };
    const std::string three = scan + scan + scan;
    const Case cases[] = {
        {scan + scan, 0, 0},
        {three, 10, 0},
        {three + scan.substr(0, 4), 10, 4},
        {three + "?" + three, 0, 0}, // torn too lately
        {three + "?" + three + three + scan + scan + "\x0A", 10, 1},
        {std::string(100, '\x0A'), 0, 0}, // any of ten places
        {std::string(100, '\0'), 0, 0},
        {std::string(700, '?') + three + three + three, 10, 0},
    };
    for (const Case& c : cases) {
        StreamHunt hunt;
        for (const char byte : c.stream) hunt.add(static_cast<std::uint8_t>(byte));
        const auto found = hunt.found();
        EXPECT_EQ(found ? found->length : 0, c.length) << c.stream;
        EXPECT_EQ(found ? found->begun : 0, c.begun) << c.stream;
    }
}

TEST(DiagnosticsFaults, ALineThatWasLostIsSaidToBeBack) {
    ConsoleRig rig({.faults = {"hang-up@5=2000"}});
    rig.acquire(20'000, "TT50\nV");
    EXPECT_EQ(rig.console.statusBits(), "- - - - - - - -");
    rig.console.send("Q"); // still gone
    EXPECT_EQ(rig.console.statusBits(), "- - - - - - - -");
    EXPECT_EQ(rig.lines.lines.back(), "2LCU Status: LCU did not respond to status request");
    rig.clock.advanceMs(3000);
    rig.console.comfindLCU();
    EXPECT_EQ(rig.count("1Communications re-established"), 0) << "a box found is not a stream yet";
    rig.acquire(5000, "V");
    EXPECT_GT(rig.console.scans(), 3);
    EXPECT_EQ(rig.count("2Communications lost"), 1);
    EXPECT_EQ(rig.count("1Communications re-established"), 1);
}

TEST(DiagnosticsFaults, AnswersGoneWrong) {
    struct Case {
        std::string fault;
        Lines lines; ///< of a status request, without its own
        std::string bits = "1 0 0 0 0 0 0 1";
    };
    const Lines again{"0LCU Status: LCU did not respond to status request",
                      "2STATUS : Trying a second time for LCU status"};
    Lines halfBefore = again, never = again;
    halfBefore.emplace_back("0Buffer returned 1 characters");
    never.emplace_back("2LCU Status: LCU did not respond to status request");
    const std::string none = "- - - - - - - -";
    const Case cases[] = {
        {"no-reply@c5", again},
        {"no-reply@c5x2", never, none},
        {"short-reply@c5", halfBefore},
        {"late-reply@c5=350", again},
        {"wrong-echo@c5", {}},
        {"long-reply@c5=9", {}},
        {"silence@c5=9000", never, none},
        {"status-bits@c5=2",
         {"2LCU Status error - value 133", "2....Error - LCU receiver has timed out"},
         "1 0 0 0 0 1 0 1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        ConsoleRig rig({.faults = {c.fault}});
        rig.console.send("Q");
        const Lines all = rig.lines.take();
        EXPECT_EQ(all.front(), "0Sent status command");
        EXPECT_EQ(Lines(all.begin() + 1, all.end()), c.lines);
        EXPECT_EQ(rig.console.statusBits(), c.bits);
        rig.clock.advanceMs(10'000);
        rig.console.send("Q");
        EXPECT_EQ(rig.console.statusBits(), "1 0 0 0 0 0 0 1") << "the next exchange is clean";
    }
}

TEST(DiagnosticsFaults, AFailureIsReportedAndTheConsoleGoesOn) {
    ConsoleRig rig;
    rig.shown.failsOnce = true;
    rig.acquire(20'000);
    EXPECT_EQ(rig.count("0Data acquisition STOPPED"), 1);
    EXPECT_FALSE(rig.console.serving() || rig.link.acquiring || rig.link.busy);
    rig.console.send("X");
    rig.acquire(5000);
    EXPECT_GT(rig.console.scans(), 3);
}
