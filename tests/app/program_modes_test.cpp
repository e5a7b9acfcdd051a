#include "app/frame_rig.h"

#include <gmock/gmock.h>

using namespace tarvik;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Modes : FrameRig {
    Transcript enter(std::string_view mode) {
        told();
        modes.Utilities_setprogrammode(mode);
        return told();
    }
    /// What follows the search on entering "ACQUIRE".
    std::string lastOnAcquire() { return enter("ACQUIRE").back(); }
};

} // namespace

TEST_F(Modes, ReviewStopsTheStreamAndClosesOnlyAnOpenPort) {
    link.port = 2;
    EXPECT_THAT(enter("REVIEW"),
                ElementsAre("status ", "uncheck all", "check MB-Review", "uncheck MB-Acquire",
                            "uncheck MB-CalibTest", "side frame", "redraw", "hide acquisition", "stop stream",
                            "log \\b\\0Port COM2 closed", "status Data review mode"));
    EXPECT_EQ(link.port, 0);
    EXPECT_EQ(enter("REVIEW").size(), 9U);
}

TEST_F(Modes, UnknownTextsChangeNothing) {
    state.mode = programMode::demo;
    for (const char* text : {"", "CALIBTEST", "review", "ACQUIRE "}) EXPECT_THAT(enter(text), IsEmpty());
    EXPECT_EQ(state.mode, "DEMO");
}

TEST_F(Modes, AcquireLeadsToWhatIsMissingFirst) {
    state.exitConfirmation = true;
    EXPECT_THAT(enter("ACQUIRE"),
                ElementsAre("status ", "uncheck all", "uncheck MB-Review", "check MB-Acquire",
                            "uncheck MB-CalibTest", "side frame", "print button", "search",
                            "Interface LCU4 1095", "message Tarvik|You must select a project|!",
                            "open frmSetup 0"));
    EXPECT_FALSE(state.exitConfirmation);
    settings.currentProject = "P";
    EXPECT_EQ(lastOnAcquire(), "open frmSetup 1"); // a fresh hole name is one blank
    settings.hole.holeId = "H";
    settings.currentTool = "K417";
    settings.currentWinch = "  ";
    EXPECT_EQ(lastOnAcquire(), "open frmSetup 2");
    settings.currentWinch = "W1";
    EXPECT_EQ(lastOnAcquire(), "open frmEquipment");
    EXPECT_EQ(state.mode, "ACQUIRE");
}

TEST_F(Modes, AcquireWithoutAnLcuOffersAnotherSearch) {
    found = "";
    Transcript lines = enter("ACQUIRE");
    EXPECT_EQ(lines[lines.size() - 2], "beep");
    EXPECT_EQ(lines.back(), "open frmNoLCUFound");
    EXPECT_EQ(state.mode, "ACQUIRE"); // the mode stays as set

    whileOpen = [this] { // the operator switches the box on and tries again
        whileOpen = nullptr;
        found = "LCU2Plus";
        EXPECT_TRUE(modes.searchForLcu());
    };
    EXPECT_EQ(lastOnAcquire(), "open frmSetup 0");
}

TEST_F(Modes, WithTheSearchOffEnteringAModeAsksFirst) {
    settings.searchAutomatically = false;
    const Transcript asked = enter("CALIB-TEST");
    EXPECT_EQ(std::ranges::count(asked, "search"), 0);
    EXPECT_EQ(std::ranges::count(asked, "open frmNoLCUFound"), 1);
    link.port = 2; // still open from an earlier search
    link.model = "LCU4";
    EXPECT_EQ(std::ranges::count(enter("CALIB-TEST"), "open frmNoLCUFound"), 0);
}

TEST_F(Modes, CalibTestIsStoredWithoutTheHyphenAndWorksWithoutABox) {
    found = "LCU2Plus";
    EXPECT_THAT(enter("CALIB-TEST"),
                ElementsAre("status ", "uncheck all", "uncheck MB-Review", "uncheck MB-Acquire",
                            "check MB-CalibTest", "status Calibrate / test mode", "side frame", "search",
                            "Interface LCU2+ 855", "calibration tools", "open frmCalibTest"));
    EXPECT_EQ(state.mode, "CALIBTEST");
    hooks.searchForLcu = [this] {
        link.port = 3; // a search that leaves its port open
        return false;
    };
    const Transcript lines = enter("CALIB-TEST");
    EXPECT_EQ(lines[lines.size() - 4], "log \\b\\0Port COM3 closed");
    EXPECT_EQ(lines[lines.size() - 3], "calibration without LCU");
}

TEST_F(Modes, DemoIsAShowWithNothingBehindIt) {
    link.firmware = "1.7";
    EXPECT_THAT(enter("DEMO"),
                ElementsAre("status ", "uncheck all", "hide run panels", "side frame",
                            "status Searching for LCU", "panel  Checking port COM1", "progress 22",
                            "sleep 400", "progress 44", "sleep 400", "progress 66", "sleep 400",
                            "progress 88", "sleep 400", "progress 100", "log \\b\\0LCU4 activated on COM1",
                            "panel  LCU4 on COM1   (Version 1.7)", "Interface LCU4 1095"));
    EXPECT_EQ(link.port, 1);
    const Transcript review = enter("REVIEW");
    EXPECT_EQ(std::ranges::count(review, "stop stream"), 0);
    EXPECT_EQ(std::ranges::count(review, "log \\b\\0Port COM1 closed"), 0);
    EXPECT_EQ(link.port, 0);
}

TEST_F(Modes, DemoClosesARealPortAndKeepsItsModel) {
    link.port = 2;
    link.model = "LCU2Plus";
    const Transcript lines = enter("DEMO");
    EXPECT_EQ(lines[2], "log \\b\\0Port COM2 closed");
    EXPECT_EQ(lines.back(), "Interface LCU2+ 855");
}

TEST_F(Modes, AClickDuringASearchStartsNothing) {
    hooks.searchForLcu = [this] {
        modes.Utilities_setprogrammode("REVIEW");
        EXPECT_FALSE(commands.toolClick("MB-Details"));
        shutDown.exit();
        return false;
    };
    const Transcript lines = enter("ACQUIRE");
    EXPECT_EQ(std::ranges::count(lines, "redraw"), 0);
    EXPECT_EQ(std::ranges::count(lines, "end"), 0);
    EXPECT_EQ(state.mode, "ACQUIRE");
    EXPECT_FALSE(state.searching);
}

TEST_F(Modes, AnErrorOnTheWayIsFiledUnderTheRoutine) {
    hooks.searchForLcu = []() -> bool { throw Failure(ErrorNumber::deviceError, "no line"); };
    EXPECT_EQ(lastOnAcquire().substr(0, 40), "error Utilities_setprogrammode|no line|M");
    EXPECT_FALSE(state.searching);
}
