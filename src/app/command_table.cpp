#include "app/command_table.h"

#include "app/control_states.h"

#include <algorithm>
#include <array>

namespace tarvik {

struct CommandTable::Command {
    std::string_view key;
    void (CommandTable::*act)(const Command&);
    ScreenRequest screen{};
    std::string_view mode{};
};

std::span<const CommandTable::Command> CommandTable::commands() {
    using Table = CommandTable;
    static constexpr std::array table{
        Command{"MB-Exit", &Table::exit},
        Command{"File-exit", &Table::exit},
        Command{"MB-Print", &Table::print},
        Command{"MB-Review", &Table::changeMode, {}, "REVIEW"},
        Command{"MB-CalibTest", &Table::changeMode, {}, "CALIB-TEST"},
        Command{"MB-Acquire", &Table::changeMode, {}, "ACQUIRE"},
        Command{"MB-Close", &Table::closeRun},
        Command{"MB-Details", &Table::open, {"frmDetails"}},
        Command{"MB-Eventlog", &Table::open, {"frmEventLog"}},
        Command{"MB-Notes", &Table::toggleNotes},
        Command{"Help-about", &Table::open, {"frmAbout"}},
        Command{"Help-backup", &Table::backUp},
        Command{"Help-diagnostics", &Table::open, {"frmDiagnostics"}},
        Command{"Help-demo", &Table::openDemo, {"frmDemo"}},
        Command{"Help-ReleaseNotes", &Table::open, {"frmReadme"}},
        Command{"Help-contents", &Table::openHelp},
        Command{"MB-Setup", &Table::openSetupAgain},
        Command{"MB-Paint", &Table::paint},
        Command{"Setup-project", &Table::openSetup, {"frmSetup", 0}},
        Command{"Setup-hole", &Table::openSetup, {"frmSetup", 1, 0}},
        Command{"Setup-winch", &Table::openSetup, {"frmSetup", 2}},
        Command{"Setup-lithology", &Table::openSetup, {"frmSetup", 3}},
        Command{"Setup-logdisplay", &Table::openSetup, {"frmSetup", 4}},
        Command{"Setup-systemtest", &Table::openSetup, {"frmSetup", 5}},
        Command{"Setup-firmware", &Table::openSetup, {"frmSetup", 6}},
        Command{"Setup-LCUsearch", &Table::toggleSearch},
        Command{"MB-Open", &Table::openFiles, {"frmFile"}},
        Command{"File-open", &Table::openFiles, {"frmFile"}},
        Command{"File-batch", &Table::openBatch, {"frmBatchProcessing"}},
        Command{"File-minimise", &Table::minimise},
        Command{"MB-Fluid", &Table::toggleFluid},
        Command{"MB-Sonic", &Table::toggleSonic},
        Command{"MB-Bullseye", &Table::cycleDeviation},
    };
    return table;
}

bool CommandTable::toolClick(std::string_view key) {
    return frame_.errors.run("controlbar toolclick", false, [&](Level& level) {
        if (frame_.state.searching) return false;
        const auto table = commands();
        const auto found = std::ranges::find(table, key, &Command::key);
        if (found == table.end()) return false;
        level = 1; // acting
        (this->*found->act)(*found);
        return true;
    });
}

std::vector<std::string_view> CommandTable::commandKeys() {
    std::vector<std::string_view> keys;
    for (const Command& command : commands()) keys.push_back(command.key);
    return keys;
}

void CommandTable::setControls(std::string_view argument) {
    for (const ControlState& control : controlStates(argument, frame_.settings.allowLogging != 0)) {
        frame_.view.setControl(control);
    }
}

void CommandTable::exit(const Command&) {
    shutDown_.exit();
}

void CommandTable::changeMode(const Command& command) {
    modes_.Utilities_setprogrammode(command.mode);
}

void CommandTable::open(const Command& command) {
    frame_.hooks.openScreen(command.screen);
}

void CommandTable::openSetup(const Command& command) {
    frame_.state.setupPage = command.screen.page;
    frame_.hooks.openScreen(command.screen);
}

void CommandTable::openSetupAgain(const Command&) {
    frame_.hooks.openScreen({"frmSetup", frame_.state.setupPage});
}

void CommandTable::openFiles(const Command& command) {
    if (frame_.state.mode != programMode::review) modes_.Utilities_setprogrammode("REVIEW");
    frame_.hooks.openScreen(command.screen);
}

/// The mode first, with its staged search; its screen then drives the rest.
void CommandTable::openDemo(const Command& command) {
    if (frame_.state.mode != programMode::demo) modes_.Utilities_setprogrammode("DEMO");
    frame_.hooks.openScreen(command.screen);
}

void CommandTable::openBatch(const Command& command) {
    resetPrintButton(frame_);
    frame_.hooks.openScreen(command.screen);
}

void CommandTable::print(const Command&) {
    frame_.hooks.printLog(projectFolder(frame_) / frame_.state.runFileName);
}

void CommandTable::closeRun(const Command&) {
    if (frame_.state.mode == programMode::review) frame_.view.closeRun();
}

void CommandTable::toggleNotes(const Command&) {
    frame_.state.notesShown = !frame_.state.notesShown;
    frame_.view.showNotesPanel(frame_.state.notesShown);
    frame_.view.setChecked("MB-Notes", frame_.state.notesShown);
}

void CommandTable::backUp(const Command&) {
    backup_.run();
}

void CommandTable::openHelp(const Command&) {
    resetPrintButton(frame_);
    window_.openHelp();
}

void CommandTable::paint(const Command&) {
    frame_.view.redrawLogsEquallySpaced();
}

void CommandTable::toggleSearch(const Command&) {
    frame_.settings.searchAutomatically = !frame_.settings.searchAutomatically;
    frame_.view.setSearchPicture(frame_.settings.searchAutomatically);
    frame_.store.Utilities_saveregsettings(frame_.settings);
}

void CommandTable::minimise(const Command&) {
    display_.showTaskBar();
    window_.minimise();
}

void CommandTable::toggleFluid(const Command& command) {
    std::string& display = frame_.state.fluidDisplay;
    display = display == "Gauges" ? "Logs" : "Gauges";
    frame_.view.setCaption(command.key, display);
    frame_.view.showFluidDisplay(display);
    if (display != "Logs") return;
    if (frame_.settings.sampling() == Sampling::depth) {
        frame_.view.redrawAcquisitionByDepth();
    } else {
        frame_.view.redrawAcquisitionByTime();
    }
}

void CommandTable::toggleSonic(const Command& command) {
    std::string& display = frame_.state.sonicDisplay;
    display = display == "Colour" ? "Traces" : "Colour";
    frame_.view.setCaption(command.key, display);
    frame_.view.showSonicDisplay(display);
}

void CommandTable::cycleDeviation(const Command& command) {
    static constexpr std::array<std::string_view, 3> displays{"Bullseye", "Magnetics", "Deviation"};
    std::string& display = frame_.state.deviationDisplay;
    const auto* const now = std::ranges::find(displays, display);
    const auto next = static_cast<std::size_t>(now - displays.begin() + 1);
    display = displays.at(next % displays.size());
    frame_.view.setCaption(command.key, display);
    frame_.view.showDeviationDisplay(display);
}

} // namespace tarvik
