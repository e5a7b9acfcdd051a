#include "screens/command_looks.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

using enum CommandPlace;

constexpr std::array looks{
    CommandLook{"File-open", fileMenu, "&Open run…", "open", "Ctrl+O",
                "Choose a run or a LAS file and look at it."},
    CommandLook{"File-batch", fileMenu, "&Batch processing…", "batch", "", "Process several runs in one go."},
    CommandLook{"File-minimise", fileMenu, "&Minimise", "minimise", "Ctrl+M", "Put the program aside.", true},
    CommandLook{"File-exit", fileMenu, "E&xit", "exit", "Ctrl+Q", "Save the settings and end the program.",
                true},

    CommandLook{"Setup-project", setupMenu, "&Project…", "setup-project", "",
                "Choose or create the project; its runs lie in one folder."},
    CommandLook{"Setup-hole", setupMenu, "&Hole…", "setup-hole", "",
                "The hole and the texts of its heading."},
    CommandLook{"Setup-winch", setupMenu, "&Winch and tool…", "setup-winch", "",
                "The winch and the tool that are in use."},
    CommandLook{"Setup-lithology", setupMenu, "&Lithology…", "setup-lithology", "",
                "Rock types and how they are drawn."},
    CommandLook{"Setup-logdisplay", setupMenu, "Log &display…", "setup-display", "",
                "Tracks, scales and curves of the log picture."},
    CommandLook{"Setup-systemtest", setupMenu, "System &test…", "setup-system", "",
                "Check the program's folders, files and serial ports.", true},
    CommandLook{"Setup-firmware", setupMenu, "&Firmware…", "setup-firmware", "",
                "The firmware of the LCU and of the tool."},
    CommandLook{"Setup-LCUsearch", setupMenu, "Automatic LCU &search", "search", "",
                "Search for the LCU by itself when Acquire or Calib/test is chosen.", true, true},

    CommandLook{"Help-contents", helpMenu, "&Contents", "help", "F1", "The help pages."},
    CommandLook{"Help-ReleaseNotes", helpMenu, "&Release notes…", "notes", "",
                "What is new in this version, and what is not built yet."},
    CommandLook{"Help-diagnostics", helpMenu, "&Diagnostics console…", "diagnostics", "Ctrl+D",
                "Talk to the LCU by hand and watch its raw answers.", true},
    CommandLook{"Help-demo", helpMenu, "De&monstration…", "play", "",
                "Play a run that was recorded earlier, as if it were being logged."},
    CommandLook{"Help-backup", helpMenu, "Developer &backup", "copy", "",
                "Copy the development folder to the day's backup folders."},
    CommandLook{"Help-about", helpMenu, "&About Tarvik…", "about", "",
                "Version, build and facts about this machine.", true},

    CommandLook{"MB-Review", toolBar, "Review", "review", "F6",
                "Look at runs that are finished. Closes the port.", false, true},
    CommandLook{"MB-Acquire", toolBar, "Acquire", "acquire", "F7", "Find the LCU and log a run.", false,
                true},
    CommandLook{"MB-CalibTest", toolBar, "Calib/test", "calibtest", "F8",
                "Calibrate or test a tool, with or without an LCU.", false, true},
    CommandLook{"MB-Open", toolBar, "Open", "open", "", "Choose a run or a LAS file and look at it. (Ctrl+O)",
                true},
    CommandLook{"MB-Close", toolBar, "Close", "close", "Ctrl+W", "Close the run that is shown."},
    CommandLook{"MB-Details", toolBar, "Details", "details", "Ctrl+I",
                "Header, channels and calibrations of the run that is shown."},
    CommandLook{"MB-Print", toolBar, "Print", "print", "Ctrl+P", "Print the log that is shown."},
    CommandLook{"MB-Paint", toolBar, "Paint", "paint", "F5", "Draw the logs again, equally spaced.", true},
    CommandLook{"MB-Notes", toolBar, "Notes", "notes", "F3", "Show or hide the notes of the hole.", true,
                true},
    CommandLook{"MB-Eventlog", toolBar, "Event log", "eventlog", "F4",
                "Everything that happened today, with faults in red."},
    CommandLook{"MB-Setup", toolBar, "Setup", "setup", "F2",
                "Project, hole, tool and winch, on the page that was shown last."},
    CommandLook{"MB-Fluid", toolBar, "Gauges", "fluid", "Ctrl+U", "Change between gauges and logs.", false,
                false, false},
    CommandLook{"MB-Sonic", toolBar, "Colour", "sonic", "Ctrl+K", "Change between colour and traces.", false,
                false, false},
    CommandLook{"MB-Bullseye", toolBar, "Bullseye", "bullseye", "Ctrl+B",
                "Go through bullseye, magnetics and deviation.", false, false, false},
    CommandLook{"MB-Exit", toolBar, "Exit", "exit", "", "Save the settings and end the program. (Ctrl+Q)",
                true},
};

} // namespace

std::span<const CommandLook> commandLooks() {
    return looks;
}

const CommandLook* commandLook(std::string_view key) {
    const auto* const found = std::ranges::find(looks, key, &CommandLook::key);
    return found == looks.end() ? nullptr : found;
}

std::string_view menuTitle(CommandPlace place) {
    switch (place) {
    case fileMenu:
        return "&File";
    case setupMenu:
        return "&Setup";
    case helpMenu:
        return "&Help";
    case toolBar:
        break;
    }
    return {};
}

std::string_view menuKey(CommandPlace place) {
    const std::string_view title = menuTitle(place);
    return title.empty() ? title : title.substr(1);
}

} // namespace tarvik
