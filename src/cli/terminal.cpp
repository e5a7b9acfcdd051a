#include "cli/terminal.h"

namespace tarvik {

namespace {

constexpr std::string_view searchCancelled = "The search was cancelled.";
constexpr std::string_view noLcuFound =
    "No LCU was found. Is it switched on and connected? Name its device with --com1 DEV.";

ProgramOptions withTrace(const Arguments& arguments) {
    ProgramOptions options = programOptions(arguments);
    if (const auto trace = arguments.name("--trace")) options.traceFile = *trace;
    return options;
}

} // namespace

Session::Session(const Arguments& arguments, Terminal& terminal)
    : terminal_(terminal), program_(withTrace(arguments), shell()) {
    program_.startUp.formLoad();
    program_.startUp.formActivate();
    program_.settings.searchAutomatically = true; // who calls a verb of the link asks for the search
}

/// Without the error trap even the closing lines may fail.
Session::~Session() {
    try {
        program_.shutDown.closeProgram();
    } catch (const std::exception& error) {
        std::cerr << "tarvik: " << error.what() << "\n";
    }
}

Shell Session::shell() {
    Shell shell = terminal_.shell();
    shell.searchCancelled = [this] { return signals_.arrived(); };
    return shell;
}

void Session::watchSearch(const std::function<void()>& search) {
    RedLines reasons(terminal_.lines());
    program_.log.addViewer(reasons);
    search();
    program_.log.removeViewer(reasons);
    if (program_.link.open()) return;
    terminal_.lines().line(signals_.arrived() ? searchCancelled : noLcuFound);
}

bool Session::find() {
    bool found = false;
    watchSearch([&] { found = program_.hooks.searchForLcu(); });
    return found;
}

bool Session::acquire() {
    bool mayStart = false;
    program_.hooks.openScreen = [&](const ScreenRequest& request) {
        mayStart = request.screen == "frmEquipment";
    };
    watchSearch([&] { program_.modes.Utilities_setprogrammode("ACQUIRE"); });
    program_.hooks.openScreen = [](const ScreenRequest&) {};
    return mayStart;
}

} // namespace tarvik
