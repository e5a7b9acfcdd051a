// Start-up, commands, exit and close.
#include "app/control_states.h"
#include "app/exit_prompt.h"
#include "app/frame_rig.h"

#include <gmock/gmock.h>

using namespace tarvik;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

struct FrameTest : FrameRig {
    Transcript click(std::string_view key) {
        told();
        EXPECT_TRUE(commands.toolClick(key)) << key;
        return told();
    }
};

struct UntrappedFrame : FrameRig {
    UntrappedFrame() : FrameRig(false) {}
};

const std::vector<ControlState> enabledFrame{{"File", true},
                                             {"Setup", true},
                                             {"Help", true},
                                             {"MB-Paint", false},
                                             {"MB-Details", false},
                                             {"MB-Acquire", true},
                                             {"MB-CalibTest", true},
                                             {"MB-Open", true},
                                             {"MB-Eventlog", true},
                                             {"MB-Notes", true},
                                             {"MB-Setup", true},
                                             {"Log-scale", true},
                                             {"MB-Review", true},
                                             {"MB-Exit", true},
                                             {"MB-Bullseye", true, Shown::no},
                                             {"MB-Fluid", true, Shown::no}};

} // namespace

TEST_F(FrameTest, MainShowsTheScreenForHalfASecond) {
    settings.depthUnits = "Feet  ";
    startUp.Main();
    EXPECT_THAT(told(), ElementsAre("create", "help /p/help/tarvik.chm", "drawing", "version [Version 2.01 ]",
                                    "show", "messages", "sleep 500"));
    EXPECT_TRUE(state.started);
    EXPECT_EQ(settings.depthUnits, "Metres");
}

TEST_F(FrameTest, TheFirstActivationDoesItsStepsInOrderAndOnce) {
    memory.set("WinchTool", "AllowLogging", "0");
    memory.set("Setup", "Search", "False");
    state.exitConfirmation = true;
    EXPECT_TRUE(startUp.formActivate());
    Transcript lines = told();
    const auto ready = lines.begin() + 14;
    EXPECT_THAT(Transcript(lines.begin(), ready),
                ElementsAre("fill 1280x1024", "task bar off", "bars", "side frame", "logo /p/complogo.bmp",
                            "search picture off", "scales 1:1 to 1:1000", "hole notes",
                            "log \\b\\0==========================================",
                            "log \\b\\0Tarvik program started - Version 2.01 (build 3)",
                            "log \\b\\0Operating system : OS text", "log \\b\\0Memory : 512 mbytes",
                            "clear equipment", "+File"));
    EXPECT_EQ(lines[18], "-MB-Acquire");
    EXPECT_EQ(lines.back(), "calibration history");
    EXPECT_FALSE(state.exitConfirmation);
    EXPECT_EQ(state.screenWidth, 1280);
    EXPECT_TRUE(startUp.formActivate());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(FrameTest, ADisplayNarrowerThan800PixelsEndsTheStart) {
    display.now.widthPixels = 799;
    EXPECT_FALSE(startUp.formActivate());
    EXPECT_THAT(told(),
                ElementsAre("message Holvanic-Brenna|The Screen resolution must be at least 800 x 600 or "
                            "better|",
                            "unload"));
}

TEST_F(FrameTest, OtherDisplayFaultsOnlyWarn) {
    display.now = {.widthPixels = 800,
                   .heightPixels = 600,
                   .twipsPerPixelX = 15,
                   .twipsPerPixelY = 12,
                   .bitsPerPixel = 15};
    EXPECT_TRUE(startUp.formActivate());
    const Transcript lines = told();
    EXPECT_EQ(lines[0], "message Tarvik Display error|The FONT setting for your screen would appear to be "
                        "incorrect.\r\nThis will cause incorrect graphics scaling for images on your "
                        "screen.\r\nPlease review the HELP manual under Overview / System Requirements / "
                        "Display.|!");
    EXPECT_EQ(lines[1], "message Tarvik Display error|The COLOUR DEPTH of 15 bits for the screen is "
                        "insufficient.\r\nThis will cause incorrect screen display and colour "
                        "rendering.\r\nPlease review the HELP manual under Overview / System Requirements / "
                        "Display.|!");
    EXPECT_EQ(lines[2], "fill 800x600");
}

TEST_F(FrameTest, SixteenBitsAndSquarePixelsAreFine) {
    display.now.bitsPerPixel = 16;
    EXPECT_TRUE(startUp.formActivate());
    EXPECT_EQ(told()[0], "fill 1280x1024");
}

TEST_F(FrameTest, TheMemoryOverflowIsFiledOnceWithoutABox) {
    StartUp big(frame, commands, window, display, errorLog, {"OS", "", "Overflow: too much"});
    EXPECT_TRUE(big.formActivate());
    for (const std::string& line : told()) EXPECT_FALSE(line.starts_with("error")) << line;
    const std::string file = files.text("/h/Tarvik_Errors.txt");
    EXPECT_THAT(file, HasSubstr("   Error : 6  Overflow: too much  (Level=0)"));
    EXPECT_EQ(file.find("Overflow"), file.rfind("Overflow"));
}

TEST_F(UntrappedFrame, SaysSoOnTheLogPicture) {
    EXPECT_TRUE(startUp.formActivate());
    EXPECT_EQ(std::ranges::count(told(), "picture [  ERROR CHECKING has been disabled]"), 1);
}

TEST(Controls, EnableAndDisable) {
    EXPECT_EQ(controlStates("ENABLE", true), enabledFrame);
    EXPECT_FALSE(controlStates("ENABLE", false)[5].enabled);
    for (const ControlState& control : controlStates("DISABLE", true)) {
        EXPECT_FALSE(control.enabled);
        EXPECT_EQ(control.shown, Shown::asItWas);
    }
    EXPECT_EQ(controlStates("DISABLE", true).size(), 16U);
    EXPECT_TRUE(controlStates("enable", true).empty());
}

TEST_F(FrameTest, EveryKeyOfTheTable) {
    EXPECT_THAT(CommandTable::commandKeys(),
                ElementsAre("MB-Exit", "File-exit", "MB-Print", "MB-Review", "MB-CalibTest", "MB-Acquire",
                            "MB-Close", "MB-Details", "MB-Eventlog", "MB-Notes", "Help-about", "Help-backup",
                            "Help-diagnostics", "Help-demo", "Help-ReleaseNotes", "Help-contents", "MB-Setup",
                            "MB-Paint", "Setup-project", "Setup-hole", "Setup-winch", "Setup-lithology",
                            "Setup-logdisplay", "Setup-systemtest", "Setup-firmware", "Setup-LCUsearch",
                            "MB-Open", "File-open", "File-batch", "File-minimise", "MB-Fluid", "MB-Sonic",
                            "MB-Bullseye"));
    EXPECT_FALSE(commands.toolClick("MB-exit")); // keys are compared as written
    const std::vector<std::pair<const char*, Transcript>> expected{
        {"MB-Details", {"open frmDetails"}},
        {"MB-Eventlog", {"open frmEventLog"}},
        {"Help-about", {"open frmAbout"}},
        {"Help-diagnostics", {"open frmDiagnostics"}},
        {"Help-ReleaseNotes", {"open frmReadme"}},
        {"Help-contents", {"print button", "open help"}},
        {"MB-Setup", {"open frmSetup 0"}},
        {"MB-Paint", {"redraw"}},
        {"Setup-project", {"open frmSetup 0"}},
        {"Setup-hole", {"open frmSetup 1.0"}},
        {"Setup-winch", {"open frmSetup 2"}},
        {"Setup-lithology", {"open frmSetup 3"}},
        {"Setup-logdisplay", {"open frmSetup 4"}},
        {"Setup-systemtest", {"open frmSetup 5"}},
        {"Setup-firmware", {"open frmSetup 6"}},
        {"MB-Setup", {"open frmSetup 6"}}, // the page it last showed
        {"MB-Open", {"open frmFile"}},
        {"File-open", {"open frmFile"}},
        {"File-batch", {"print button", "open frmBatchProcessing"}},
        {"File-minimise", {"task bar on", "minimise"}},
        {"MB-Close", {"close run"}},
        {"MB-Notes", {"notes on", "check MB-Notes"}},
        {"MB-Notes", {"notes off", "uncheck MB-Notes"}},
        {"MB-Fluid", {"MB-Fluid=Logs", "redraw time"}},
        {"MB-Fluid", {"MB-Fluid=Gauges"}},
        {"MB-Sonic", {"MB-Sonic=Traces"}},
        {"MB-Sonic", {"MB-Sonic=Colour"}},
        {"MB-Bullseye", {"MB-Bullseye=Magnetics"}},
        {"MB-Bullseye", {"MB-Bullseye=Deviation"}},
        {"MB-Bullseye", {"MB-Bullseye=Bullseye"}}};
    for (const auto& [key, lines] : expected) EXPECT_EQ(click(key), lines) << key;
}

TEST_F(FrameTest, CommandsThatDependOnTheState) {
    const Transcript demo = click("Help-demo"); // its staged search, then its screen
    EXPECT_EQ(std::ranges::count(demo, "sleep 400"), 4);
    EXPECT_EQ(demo.back(), "open frmDemo");
    EXPECT_THAT(click("Help-demo"), ElementsAre("open frmDemo"));
    EXPECT_EQ(click("MB-Acquire").size(), 11U);
    EXPECT_THAT(click("MB-Close"), IsEmpty()); // only in review mode
    EXPECT_EQ(click("File-open").back(), "open frmFile");
    EXPECT_EQ(state.mode, "REVIEW");
    click("MB-CalibTest");
    EXPECT_EQ(state.mode, "CALIBTEST");
    click("MB-Review");
    EXPECT_EQ(state.mode, "REVIEW");

    settings.samplingMethod = "DEPTH";
    EXPECT_EQ(click("MB-Fluid").back(), "redraw depth");
    settings.currentProject = "Nord ";
    state.runFileName = "H1_K417_01.kvx";
    EXPECT_THAT(click("MB-Print"), ElementsAre("print /c/Brenna Projects/Nord/H1_K417_01.kvx"));
    EXPECT_THAT(click("Setup-LCUsearch"), ElementsAre("search picture off"));
    EXPECT_EQ(memory.get("Setup", "Search"), "False");
}

TEST_F(FrameTest, ExitSavesClosesAndEnds) {
    link.port = 3;
    settings.currentProject = "P";
    EXPECT_THAT(click("File-exit"), ElementsAre("stop timer", "log \\b\\0Port COM3 closed", "hide",
                                                "messages", "unload", "log \\b\\0Port COM0 already closed",
                                                "log \\b\\0Tarvik program closed", "task bar on", "end"));
    EXPECT_EQ(memory.get("Project", "Current_project"), "P");
}

TEST_F(FrameTest, SettingsThatCannotBeSavedAreNotLostWithoutAWord) {
    memory.broken = true;
    EXPECT_THAT(click("File-exit").back(), StartsWith("ask The settings could not be saved")); // answered no
    EXPECT_THAT(click("File-exit"), Not(Contains("end")));
    state.mustEnd = state.exitConfirmation = true; // a machine that is shut down waits for no answer
    EXPECT_THAT(click("File-exit"), AllOf(Contains("end"), Not(Contains(StartsWith("ask ")))));
}

TEST_F(FrameTest, CloseWithoutExitClosesAnOpenPort) {
    link.port = 3;
    shutDown.closeProgram();
    EXPECT_EQ(told().front(), "log \\b\\0Port COM3 closed");
    link.port = -1;
    shutDown.closeProgram();
    EXPECT_EQ(told().front(), "log \\b\\0Port COM-1 already closed");
}

TEST_F(FrameTest, ExitAsksWhileARunIsShown) {
    ExitPrompt prompt(state, person);
    state.exitConfirmation = true;
    whileOpen = [&] { prompt.comno(); };
    EXPECT_THAT(click("MB-Exit"), ElementsAre("open frmExit", "redraw review"));
    state.mode = programMode::acquire;
    EXPECT_THAT(click("MB-Exit"), ElementsAre("open frmExit"));
    whileOpen = [&] { prompt.comyes(); };
    EXPECT_EQ(click("MB-Exit").back(), "end");
}

TEST_F(FrameTest, NothingEndsWhileARunIsLogged) {
    state.logging = true;
    EXPECT_THAT(click("MB-Exit"), ElementsAre(HasSubstr("notice Tarvik|Stop the logging run")));
}

TEST_F(FrameTest, TheExitLabelFlashesAndBeepsOnReturn) {
    ExitPrompt prompt(state, person);
    prompt.opened();
    EXPECT_EQ(prompt.flash(), 14);
    EXPECT_EQ(told().size(), 1U);
    EXPECT_EQ(prompt.flash(), 12);
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(FrameTest, TheBackupFoldersAreNamedByTheDay) {
    EXPECT_THAT(click("Help-backup"), ElementsAre(HasSubstr("is no such folder to back up"),
                                                  HasSubstr("is no such folder to back up")));
    files.createFolder("/d/Software Development/Tarvik");
    files.createFolder("/g/Tarvik-Mon-130306");
    EXPECT_THAT(click("Help-backup"),
                ElementsAre("message Tarvik|Daily backup directory being created|",
                            "copy /d/Software Development/Tarvik to /f/Tarvik-Mon-130306",
                            HasSubstr("Backup to /f/Tarvik-Mon-130306 started"),
                            "copy /d/Software Development/Tarvik to /g/Tarvik-Mon-130306",
                            HasSubstr("Backup to /g/Tarvik-Mon-130306 started")));
    EXPECT_TRUE(files.exists("/f/Tarvik-Mon-130306"));
    places.drives.erase('F'); // a letter without a folder would mean drive C
    EXPECT_THAT(click("Help-backup"),
                ElementsAre(HasSubstr("Drive F has no folder"), HasSubstr("copy "), HasSubstr("started")));
    EXPECT_FALSE(files.exists("/c/Tarvik-Mon-130306"));
    hooks.startCopying = [](const Path&, const Path&) { return false; };
    EXPECT_THAT(click("Help-backup").back(), HasSubstr("The backup could not be started"));
    copiesEnded = {{"/f/Tarvik-Mon-130306", true}, {"/g/Tarvik-Mon-130306", false}};
    backup.reportEnded();
    EXPECT_THAT(told(), ElementsAre(HasSubstr("Backup to /f/Tarvik-Mon-130306 complete"),
                                    HasSubstr("2The backup to /g/Tarvik-Mon-130306 is not complete"),
                                    HasSubstr("notice Backup not complete")));
}
