#include "cli/terminal.h"

#include <iostream>

namespace tarvik {

namespace {

ProgramOptions withTrace(const Arguments& arguments) {
    ProgramOptions options = programOptions(arguments);
    if (const auto trace = arguments.text("--trace")) options.traceFile = *trace;
    return options;
}

} // namespace

void RedLines::showStatusLine(std::string_view viewerLine) {
    constexpr std::size_t colourAt = std::string_view("hh:mm:ss  \\b\\").size();
    if (viewerLine.size() > colourAt && viewerLine[colourAt] == '2')
        std::cerr << viewerLine.substr(colourAt + 1) << "\n";
}

Session::Session(const Arguments& arguments, Terminal& terminal)
    : program(withTrace(arguments), terminal.shell()) {
    program.startUp.formLoad();
    program.startUp.formActivate();
    program.settings.lcuComms = static_cast<std::int16_t>(searchedPorts(arguments, program.settings));
    program.settings.searchAutomatically = true; // who calls a verb of the link asks for the search
}

Session::~Session() {
    program.shutDown.closeProgram();
}

bool Session::acquire() {
    bool mayStart = false;
    program.hooks.openScreen = [&](const ScreenRequest& request) {
        mayStart = request.screen == "frmEquipment";
    };
    program.modes.Utilities_setprogrammode("ACQUIRE");
    program.hooks.openScreen = [](const ScreenRequest&) {};
    if (program.link.model.empty()) std::cerr << noLcuAdvice;
    return mayStart;
}

} // namespace tarvik
