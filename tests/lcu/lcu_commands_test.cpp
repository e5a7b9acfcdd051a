// Commands: the exact bytes and waits on the wire, what answers mean, what is logged and shown.
#include "lcu/lcu_bench.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr const char* noAnswer = "0LCU Status: LCU did not respond to status request";
constexpr const char* noAnswerAgain = "2LCU Status: LCU did not respond to status request";
constexpr const char* secondTry = "2STATUS : Trying a second time for LCU status";

const std::string x = "X\n<250>Q\n<300>";
const std::string q = "Q\n<300>";

} // namespace

TEST(LcuCommands, SequencesOnTheWire) {
    struct Case {
        const char* legend;
        const LcuModel* model;
        LinkResult (LcuCommands::*routine)();
        std::string wire;
        std::string lastLine;
    };
    const std::string p = "P\n<250>" + q;
    const std::string er0 = "ER0\n<250>" + q;
    const Case cases[] = {
        {"reset", lcu2Plus, &LcuCommands::LCU_Reset, x + "<50>" + x + q, "0LCU reset OK"},
        {"stop", lcu4, &LcuCommands::stopStream, x, "0LCU data stream stopped OK"},
        {"off", lcu2Plus, &LcuCommands::LCU_PowerOFF_Reset, x + p + q, "0LCU powered down OK"},
        {"off LCU4", lcu4, &LcuCommands::LCU_PowerOFF_Reset, x + p + er0 + q, "0LCU powered down OK"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        LcuBench bench;
        bench.connect(c.model);
        EXPECT_EQ((bench.lcu.*c.routine)(), LinkResult::good);
        EXPECT_EQ(bench.serial.wire, c.wire);
        EXPECT_EQ(bench.lines.lines.back(), c.lastLine);
        EXPECT_EQ(bench.lines.lines.front(), "0Command X sent to " + std::string(c.model->name) + " OK.");
    }
}

TEST(LcuCommands, StoppingTheStreamNeverWaitsForTheOperator) {
    for (const bool gone : {false, true}) {
        LcuBench bench;
        bench.connect(lcu4);
        bench.serial.answer("Q", {{}});
        bench.serial.gone = gone;
        EXPECT_EQ(bench.lcu.stopStream(), LinkResult::failed);
        EXPECT_EQ(bench.lines.lines.back(), "2LCU data stream stop error");
        EXPECT_EQ(bench.serial.wire.empty(), gone) << "nothing is sent to a port that has gone";
        for (const std::string& shown : bench.operatorSide.shown) EXPECT_EQ(shown.front(), '?') << shown;
        EXPECT_EQ(bench.operatorSide.shown.size(), gone ? 0U : 1U);
    }
}

TEST(LcuCommands, TheLastStatusDecidesAndThePowerStateIsClearedAnyway) {
    const std::string good{'Q', char(129)};
    const std::string bad{'Q', 1};
    LcuBench bench;
    bench.connect(lcu2Plus);
    bench.link.toolPower = true;
    bench.serial.answer("Q", {{{bad}}, {{bad}}, {{good}}, {{bad}}});
    EXPECT_EQ(bench.lcu.LCU_PowerOFF_Reset(), LinkResult::good);
    EXPECT_FALSE(bench.link.toolPower);
    EXPECT_EQ(bench.operatorSide.shown.size(), 2U);
    EXPECT_EQ(bench.lcu.LCU_Reset(), LinkResult::failed);
    EXPECT_EQ(bench.lines.lines.back(), "2LCU reset error");
}

TEST(LcuCommands, APowerDownThatNobodyConfirmsLeavesThePowerInDoubt) {
    LcuBench bench;
    bench.connect(lcu2Plus);
    bench.link.toolPower = true;
    const std::string bad{'Q', 1};
    bench.serial.answer("Q", {{{bad}}, {{bad}}, {{bad}}, {{std::string{'Q', char(129)}}}});
    EXPECT_EQ(bench.lcu.LCU_PowerOFF_Reset(), LinkResult::failed);
    EXPECT_TRUE(bench.link.powerDoubtful);
    EXPECT_EQ(bench.lcu.LCU_PowerOFF_Reset(), LinkResult::good);
    EXPECT_FALSE(bench.link.powerDoubtful);
}

TEST(LcuCommands, StatusAnswers) {
    struct Case {
        const char* legend;
        std::vector<ScriptedPort::Reply> replies;
        std::int32_t status;
        std::string text;
        Lines lines;
    };
    const std::string none = "  No chars recd from LCU ";
    const std::string unhealthy{'Q', 0x4E};
    const Case cases[] = {
        {"LCU2Plus", {{{"Q\x81"}}}, 129, "", {}},
        {"LCU4", {{{"Q\x91"}}}, 145, "", {}},
        {"more than two: the first two count", {{{"Q\x91\x81"}}}, 145, "", {}},
        {"in two pieces, just in time", {{{"Q", 100}, {"\x91", 300}}}, 145, "", {}},
        {"one byte is no answer; the second try discards it",
         {{{"Q", 100}}, {{"Q\x91"}}},
         145,
         "",
         {noAnswer, secondTry, "0Buffer returned 1 characters"}},
        {"one byte, twice",
         {{{"Q"}}},
         -1,
         none,
         {noAnswer, secondTry, "0Buffer returned 1 characters", noAnswerAgain}},
        {"silent once", {{}, {{"Q\x81"}}}, 129, "", {noAnswer, secondTry}},
        {"silent", {{}}, -1, none, {noAnswer, secondTry, noAnswerAgain}},
        {"all bits, in order",
         {{{unhealthy}}},
         78,
         "Error : 78",
         {"2LCU Status error - value 78", "2....Error - LCU has not got block",
          "2....Error - LCU receiver has timed out", "2....Error - LCU Data Check sum error",
          "2....Error - LCU Command error"}},
        {"bits without a name", {{{"Q\x90"}}}, 144, "Error : 144", {"2LCU Status error - value 144"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        LcuBench bench;
        bench.link.port = 1;
        bench.serial.answer("Q", c.replies);
        EXPECT_EQ(bench.lcu.LCU_Status() == LinkResult::good, c.text.empty());
        EXPECT_EQ(bench.link.status, c.status);
        EXPECT_EQ(bench.link.statusText, c.text);
        EXPECT_EQ(bench.lines.lines, c.lines);
        EXPECT_EQ(bench.link.model, c.status == 129 ? "LCU2Plus" : "")
            << "an LCU4 is named by the search only";
    }
}

TEST(LcuCommands, ATornDepthIsNoAnswerToBlameTheWinchFor) {
    LcuBench bench;
    bench.connect(lcu4);
    bench.serial.answer("D", {{{std::string("D\0\x01", 3)}}, {{std::string("D\0\x01\x02\x03", 5)}}});
    EXPECT_FALSE(bench.lcu.LCU_getdepth());
    EXPECT_FALSE(bench.lcu.depthAnswered());
    EXPECT_FALSE(bench.lcu.LCU_getdepth());
    EXPECT_TRUE(bench.lcu.depthAnswered()); // scans in between: the winch runs
}

TEST(LcuCommands, APortThatHasGoneIsAnErrorNotAHang) {
    LcuBench bench;
    bench.connect(lcu4);
    bench.serial.gone = true;
    EXPECT_EQ(bench.lcu.LCU_Status(), LinkResult::failed);
    EXPECT_EQ(bench.lines.lines, (Lines{"2LCU Status : Problem with sending chars to port -5",
                                        "0LCU Status : Problem with comms port wait -5",
                                        "0LCU Status : Expected characters not rec'd", noAnswerAgain}));
    EXPECT_EQ(bench.lcu.sendPlain("V"), LinkResult::failed);
    EXPECT_FALSE(bench.lcu.LCU_getdepth());
}

TEST(LcuCommands, WhatACommandTellsTheOperator) {
    LcuBench bench;
    bench.connect(lcu4);
    bench.serial.put("???");
    EXPECT_EQ(bench.lcu.LCU_Command("ER56"), LinkResult::good);
    EXPECT_EQ(bench.lines.take(), (Lines{"0Buffer returned 3 characters", "0Command ER56 sent to LCU4 OK."}));

    bench.link.diagnosticsOpen = true;
    bench.lcu.LCU_Command("ER56");
    EXPECT_TRUE(bench.lines.take().empty());

    bench.answerStatus(0x40);
    bench.lcu.LCU_Command("TD+5");
    bench.link.acquiring = true;
    bench.lcu.LCU_Command("V");
    const std::string sent = "Communications error: Problems sending this command to LCU > ";
    EXPECT_EQ(bench.operatorSide.shown,
              (Lines{"!" + sent + "TD+5\r\nError : 64", "?" + sent + "V\r\nError : 64"}));
    EXPECT_EQ(bench.lines.lines.back(), "0Above problems occurred after sending V to LCU4");
}

TEST(LcuCommands, FirmwareVersions) {
    LcuBench bench;
    bench.connect(lcu4);
    bench.serial.answer("Y", {{{"Y4.07"}, {"late", 150}}, {{"Y"}}});
    bench.serial.answer("y", {{{"y2"}}, {}});
    EXPECT_EQ(bench.lcu.LCU_FirmwareVersion(), "4.07");
    EXPECT_EQ(bench.link.firmware, "4.07");
    EXPECT_EQ(bench.serial.ComStatus(1), 0) << "what comes late is discarded";
    EXPECT_EQ(bench.lcu.LCU_ToolFirmwareVersion(), "2");
    EXPECT_EQ(bench.serial.wire, "Y\n<100><100>y\n<100><100>");
    EXPECT_EQ(bench.lcu.LCU_FirmwareVersion(), "") << "an echo alone is no version";
    EXPECT_EQ(bench.lcu.LCU_ToolFirmwareVersion(), " ??");
}

TEST(LcuCommands, Depths) {
    using namespace std::string_literals;
    struct Case {
        std::string reply;
        std::optional<std::int32_t> depth;
    };
    const Case cases[] = {
        {"D\x00\x04\xD2"s, 1234}, {"D\x7F\xFF\xFF", 8388607},   {"D\x80\x00\x00"s, -8388608},
        {"D\xFF\xFF\xFF", -1},    {"D\x00\x04"s, std::nullopt}, {"D\x00\x04\xD2\x00"s, std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& c : cases) {
        LcuBench bench;
        bench.connect(lcu4);
        bench.serial.answer("D", {{{c.reply}}});
        EXPECT_EQ(bench.lcu.LCU_getdepth(), c.depth);
        EXPECT_EQ(bench.serial.ComStatus(1), 0);
        EXPECT_EQ(bench.serial.wire, "D\n<20>");
    }
}

TEST(LcuCommands, SettingTheDepthAsksForItAfresh) {
    using namespace std::string_literals;
    LcuBench bench;
    bench.connect(lcu4);
    bench.serial.answer("D1234", {{{"D\x00\x00\x07"s}}});
    bench.serial.answer("D", {{{"D\x00\x04\xD2"s}}});
    EXPECT_EQ(bench.lcu.LCU_SetDepth(12.34 * 100), 1234) << "not what was still waiting";
    EXPECT_EQ(bench.serial.wire, "D1234\n<20>D\n<20>");
    bench.serial.wire.clear();
    bench.lcu.LCU_SetDepth(-50);
    EXPECT_EQ(bench.serial.wire.substr(0, 5), "D-50\n");
    bench.serial.wire.clear();
    EXPECT_FALSE(bench.lcu.LCU_SetDepth(1e12));
    EXPECT_EQ(bench.serial.wire, "");
    EXPECT_EQ(bench.reports.lines, Lines{"LCUFunctions-LCU_SetDepth: Overflow"});
}

TEST(LcuCommands, AnExchangeInsideAnotherIsRefused) {
    LcuBench bench;
    bench.connect(lcu4);
    int tries = 0;
    bench.serial.whileSleeping = [&] {
        if (++tries > 1) return;
        EXPECT_EQ(bench.lcu.LCU_Command("P"), LinkResult::busy);
        EXPECT_FALSE(bench.lcu.LCU_getdepth());
        EXPECT_EQ(bench.search.LCU_Locate(12), SearchResult::busy);
    };
    EXPECT_EQ(bench.lcu.LCU_Command("TT50"), LinkResult::good);
    EXPECT_EQ(bench.serial.wire, "TT50\n<250>Q\n<300>");
    EXPECT_FALSE(bench.link.busy);
    bench.link.demo = true;
    EXPECT_NE(bench.lcu.LCU_Command("P"), LinkResult::good) << "no device is behind a demonstration";
    EXPECT_EQ(bench.serial.wire, "TT50\n<250>Q\n<300>");
}
