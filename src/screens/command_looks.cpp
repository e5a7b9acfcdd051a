#include "screens/command_looks.h"

#include <array>

namespace tarvik {

namespace {

constexpr bool checkable = true;
constexpr bool newGroup = true;

constexpr std::array looks{
    CommandLook{"File-open", "File", "&Open\u2026", "open", "Ctrl+O", "Open a finished run or a LAS file"},
    CommandLook{"File-batch", "File", "&Batch processing\u2026", "", "", "Process many files in one go"},
    CommandLook{"File-minimise", "File", "&Minimise", "", "Ctrl+M", "Out of the way, the run goes on", false,
                newGroup},
    CommandLook{"File-exit", "File", "E&xit", "exit", "Ctrl+Q", "Close the port and leave", false, newGroup},

    CommandLook{"Setup-project", "Setup", "&Project\u2026", "project", "Ctrl+1", "Choose or make a project"},
    CommandLook{"Setup-hole", "Setup", "&Hole\u2026", "hole", "Ctrl+2",
                "Choose or make a hole, fill in its heading"},
    CommandLook{"Setup-winch", "Setup", "&Winch and tool\u2026", "winch", "Ctrl+3",
                "Your tools and winches, sampling"},
    CommandLook{"Setup-lithology", "Setup", "&Lithology\u2026", "lithology", "Ctrl+4", "Layers of the hole"},
    CommandLook{"Setup-logdisplay", "Setup", "Log &display\u2026", "display", "Ctrl+5",
                "Theme and drawing of logs"},
    CommandLook{"Setup-systemtest", "Setup", "&System test\u2026", "systemtest", "Ctrl+6",
                "Ports, drives, state of the LCU"},
    CommandLook{"Setup-firmware", "Setup", "&Firmware\u2026", "firmware", "Ctrl+7",
                "Versions in LCU and tool"},
    CommandLook{"Setup-LCUsearch", "Setup", "Search for the LCU &automatically", "search", "",
                "Search whenever Acquire or Calib/test is chosen", checkable, newGroup},

    CommandLook{"Help-contents", "Help", "&Contents", "help", "F1", "The handbook"},
    CommandLook{"Help-demo", "Help", "&Demonstration\u2026", "play", "",
                "Play a run as if it were being logged"},
    CommandLook{"Help-diagnostics", "Help", "D&iagnostics\u2026", "systemtest", "Ctrl+D",
                "Talk to the LCU by hand", false, newGroup},
    CommandLook{"Help-backup", "Help", "Developer &backup", "", "", "Copy the development folder"},
    CommandLook{"Help-ReleaseNotes", "Help", "&Release notes", "", "", "What is new", false, newGroup},
    CommandLook{"Help-about", "Help", "&About Tarvik", "about", "", "Version and machine"},

    CommandLook{"MB-Review", "", "Review", "review", "Ctrl+R", "Look at finished runs", checkable},
    CommandLook{"MB-Acquire", "", "Acquire", "acquire", "Ctrl+L", "Search for the LCU and log a hole",
                checkable},
    CommandLook{"MB-CalibTest", "", "Calib/test", "calibtest", "Ctrl+T", "Calibrate and test tools",
                checkable},
    CommandLook{"MB-Open", "", "Open", "open", "", "Open a finished run or a LAS file", false, newGroup},
    CommandLook{"MB-Close", "", "Close", "close", "Ctrl+W", "Close the run that is shown"},
    CommandLook{"MB-Details", "", "Details", "details", "Ctrl+I",
                "Heading, tool and calibrations of the run"},
    CommandLook{"MB-Print", "", "Print", "print", "Ctrl+P", "Print the logs to scale"},
    CommandLook{"MB-Paint", "", "Paint", "paint", "Ctrl+E", "Whole run in the window, equally spaced", false,
                newGroup},
    CommandLook{"MB-Fluid", "", "Gauges", "fluid", "", "Gauges or logs of the fluid sampler"},
    CommandLook{"MB-Sonic", "", "Colour", "sonic", "", "Sonic waveforms as colours or traces"},
    CommandLook{"MB-Bullseye", "", "Bullseye", "bullseye", "Ctrl+B", "Plan view, magnetics or deviation"},
    CommandLook{"MB-Notes", "", "Notes", "notes", "", "Notes of the hole", checkable, newGroup},
    CommandLook{"MB-Eventlog", "", "Event log", "eventlog", "F8", "What happened today"},
    CommandLook{"MB-Setup", "", "Setup", "setup", "F4", "Project, hole, winch and tool"},
    CommandLook{"MB-Exit", "", "Exit", "exit", "", "Close the port and leave", false, newGroup},
};

} // namespace

std::span<const CommandLook> commandLooks() {
    return looks;
}

} // namespace tarvik
