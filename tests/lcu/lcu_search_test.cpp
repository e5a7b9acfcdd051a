// The search: which ports, in which order, with which words.
#include "lcu/lcu_bench.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

Lines bothSpeeds(const std::string& port) {
    return {"COM" + port + "@9600", "-" + port, "COM" + port + "@115200", "-" + port};
}

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace

TEST(LcuSearch, TriesThePortsOfTheSetting) {
    struct Case {
        std::int32_t setting;
        Lines opened;
        std::string where;
    };
    const Case cases[] = {
        {12, bothSpeeds("1") + bothSpeeds("2"), "COM1 or COM2"},
        {34, bothSpeeds("3") + bothSpeeds("4"), "COM3 or COM4"},
        {1, bothSpeeds("1"), "COM1"},
        {4, bothSpeeds("4"), "COM4"},
        {5, bothSpeeds("1") + bothSpeeds("2"), "COM1 or COM2"},
    };
    for (const Case& c : cases) {
        LcuBench bench;
        EXPECT_EQ(bench.search.LCU_Locate(c.setting), SearchResult::notFound);
        EXPECT_EQ(bench.serial.opened, c.opened);
        EXPECT_EQ(bench.lines.lines.back(), "0No LCU device found on " + c.where);
        EXPECT_EQ(bench.link.port, 0);
        EXPECT_EQ(bench.link.model, "");
    }
}

TEST(LcuSearch, FindsTheBoxAtTheSecondSpeed) {
    LcuBench bench;
    bench.link.demo = true; // a demonstration came before
    bench.link.port = 1;
    bench.serial.answer("Q", {{{"Q\x11"}}, {{"Q\x91"}}});
    bench.serial.answer("X", {{}, {}, {{"abc", 100}}, {}});
    bench.serial.answer("Y", {{{"Y4.07"}}});
    EXPECT_EQ(bench.search.LCU_Locate(2), SearchResult::found);

    EXPECT_EQ(bench.serial.lineSettings, (std::vector<std::int32_t>{8, 1, 1, 8192, 8192}));
    EXPECT_EQ(bench.serial.wire, "X\n<100>X\n<100>Q\n<300>X\n<100>X\n<100>Q\n<300>Y\n<100><100>");
    EXPECT_EQ(bench.lines.lines,
              (Lines{"0Port COM2 opened OK at 9600 baud", "0Buffer returned 2 characters", "0Status value 17",
                     "0Closing comms port COM2", "0Port COM2 closed", "0Port COM2 opened OK at 115200 baud",
                     "0Buffer returned 3 characters", "0Buffer returned 2 characters", "0Status value 145",
                     "0LCU4 activated on COM2"}));
    EXPECT_EQ(bench.operatorSide.shown, (Lines{"sSearching for LCU", "p Checking port COM2", "p  standby ..",
                                               "p Checking port COM2", "p LCU4 on COM2   (Firmware 4.07)"}));
    EXPECT_EQ(bench.link.port, 2);
    EXPECT_EQ(bench.link.baud, 115200);
    EXPECT_EQ(bench.link.model, "LCU4");
    EXPECT_EQ(bench.link.modelFactor, 0.25);
    EXPECT_EQ(bench.link.status, 145);
    EXPECT_FALSE(bench.link.busy);

    // A new search gives up the box it has.
    bench.serial.answer("Q", {{}});
    bench.serial.opened.clear();
    EXPECT_EQ(bench.search.LCU_Locate(1), SearchResult::notFound);
    EXPECT_EQ(bench.serial.opened, Lines{"-2"} + bothSpeeds("1"));
    EXPECT_EQ(bench.link.model + bench.link.firmware, "");
}

TEST(LcuSearch, APortThatCannotBeOpenedIsSkippedInPlainWords) {
    LcuBench bench;
    bench.serial.openResult = [](auto port, auto) { return port == 1 ? portBusy : 1; };
    bench.serial.answer("Q", {{{"Q\x81"}}});
    EXPECT_EQ(bench.search.LCU_Locate(12), SearchResult::found);
    EXPECT_EQ(bench.link.port, 2);
    EXPECT_EQ(bench.lines.lines[2], "2Problems opening COM1 port at 115200 - may be in use");
    EXPECT_EQ(bench.lines.lines[3], "2COM1 is held by another program.");
    EXPECT_EQ(bench.serial.opened, (Lines{"COM1@9600", "COM1@115200", "COM2@9600"}));
}

TEST(LcuSearch, TellsForEachPortWhyNothingWasFound) {
    struct Case {
        std::int32_t opening;
        std::string reply;
        std::string what;
    };
    const Case cases[] = {
        {portMissing, "", "COM1: no such device"},
        {portBusy, "", "COM1: in use by another program"},
        {portNotPermitted, "", "COM1: no permission to open it"},
        {portFailed, "", "COM1: cannot be opened"},
        {1, "", "COM1: opened, but nothing answered"},
        {1, "Q\x05", "COM1: something answered that is no healthy LCU"},
    };
    for (const Case& c : cases) {
        LcuBench bench;
        bench.serial.openResult = [&](auto port, auto) { return port == 1 ? c.opening : 1; };
        bench.serial.answer("Q", {{{c.reply}}, {}}); // at the second speed nothing comes
        bench.search.LCU_Locate(12);
        const auto report = bench.search.report();
        ASSERT_EQ(report.size(), 2U);
        EXPECT_EQ(report[0].what, c.what);
        EXPECT_EQ(report[0].remedy == "COM1 is held by another program.", c.opening != 1)
            << "the port's own sentence";
        EXPECT_FALSE(report[1].remedy.empty());
    }
    LcuBench bench;
    bench.search.LCU_Locate(1, [] { return true; });
    EXPECT_TRUE(bench.search.cancelled());
    EXPECT_TRUE(bench.search.report().empty());
}

TEST(LcuSearch, FlowAndYieldAreWorthALineNotAFailure) {
    LcuBench bench;
    bench.serial.setUpResult = portFailed;
    bench.serial.answer("Q", {{{"Q\x81"}}});
    EXPECT_EQ(bench.search.LCU_Locate(1), SearchResult::found);
    EXPECT_EQ(bench.lines.lines[1], "0Problem setting flow off on comms port - error -1");
    EXPECT_EQ(bench.lines.lines[2], "0Problem setting Windows yield on comms port - error -1");
}

TEST(LcuSearch, CanBeCancelledAtEveryWait) {
    for (int waits = 1; waits <= 4; ++waits) {
        LcuBench bench;
        int left = waits;
        EXPECT_EQ(bench.search.LCU_Locate(1, [&] { return --left == 0; }), SearchResult::cancelled);
        EXPECT_EQ(bench.lines.lines.back(), "0 LCU search cancelled by user");
        EXPECT_EQ(bench.serial.opened.back(), "-1");
        EXPECT_EQ(bench.link.port, 0);
        EXPECT_EQ(bench.link.model, "");
    }
}
