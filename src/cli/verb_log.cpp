// tarvik log: a logging run, from the search for the LCU to the run file's path.
#include "cli/console_run_view.h"
#include "cli/terminal.h"

#include "lcu/depth_setting.h"
#include "lcu/logging_run.h"
#include "lcu/run_order.h"

#include <array>
#include <iostream>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 2> unitNames{"Metres", "Feet"};
constexpr std::array<std::string_view, 2> samplingNames{"TIME", "DEPTH"};
constexpr std::array<std::string_view, 2> directionNames{"DOWN", "UP"};

constexpr Range depths{-83'886, 83'886}; // metres: how far the depth counter of an LCU reaches

/// "CODE" or "CODE:SERIAL".
void choose(const std::optional<std::string>& option, std::string& code, std::string& serial) {
    if (!option) return;
    const auto colon = option->find(':');
    code = option->substr(0, colon);
    serial = colon == std::string::npos ? "" : option->substr(colon + 1);
}

/// What the options say instead of the settings, for this run only.
void applyOptions(const Arguments& arguments, Settings& settings) {
    if (const auto project = arguments.text("--project")) settings.currentProject = *project;
    if (const auto hole = arguments.text("--hole")) settings.hole.holeId = *hole;
    choose(arguments.text("--tool"), settings.currentTool, settings.currentToolSerial);
    choose(arguments.text("--winch"), settings.currentWinch, settings.currentWinchSerial);
    if (const auto units = arguments.oneOf("--units", unitNames)) settings.depthUnits = *units;
    if (const auto sampling = arguments.oneOf("--sampling", samplingNames))
        settings.samplingMethod = *sampling;
    if (const auto interval = arguments.number("--interval")) settings.samplingInterval = *interval;
    if (const auto direction = arguments.oneOf("--direction", directionNames))
        settings.logDirection = *direction;
    if (const auto declination = arguments.number("--declination", {-360, 360}))
        settings.declination = *declination;
}

RunLimits limitsFrom(const Arguments& arguments) {
    return {.top = arguments.number("--top", depths),
            .bottom = arguments.number("--bottom", depths),
            .endDistance = arguments.number("--end-distance", {0, depths.most}).value_or(0)};
}

/// The option that puts it right.
std::string_view remedy(OrderPart part) {
    switch (part) {
    case OrderPart::project:
        return " (--project P)";
    case OrderPart::hole:
        return " (--hole H)";
    case OrderPart::interval:
        return " (--interval X)";
    case OrderPart::winch:
        return " (WinchScaleFactor in settings.ini)";
    case OrderPart::limits:
        return " (--top M, --bottom M)";
    }
    return {};
}

RunOrder orderFrom(const Arguments& arguments, const Program& program) {
    try {
        return runOrderFrom(program.settings, program.places, limitsFrom(arguments));
    } catch (const BadOrder& bad) {
        throw UsageError(bad.what() + std::string(remedy(bad.part())));
    }
}

RunChoice runChoice(const Arguments& arguments) {
    if (arguments.has("--append") && arguments.has("--new")) throw UsageError("--append or --new, not both");
    return arguments.has("--append") ? RunChoice::append : RunChoice::newRun;
}

int toolMode(const Arguments& arguments) {
    const int mode = arguments.whole("--mode").value_or(1);
    if (mode != 1 && mode != 2) throw UsageError("--mode expects 1 or 2");
    return mode;
}

void loadEquipment(const Settings& settings, int mode, ToolWinchData& equipment) {
    const EquipmentChoice tool{settings.currentTool, settings.currentToolSerial};
    const EquipmentChoice winch{settings.currentWinch, settings.currentWinchSerial};
    equipment.ToolWinchData_loadcurrentttoolwinch(tool, winch, mode);
    const auto missing = [](std::string_view what, const EquipmentChoice& choice) {
        const std::string name =
            choice.serialNumber.empty() ? choice.code : choice.code + ":" + choice.serialNumber;
        return Failure(ErrorNumber::badFile,
                       choice.code.empty()
                           ? "You must select a " + std::string(what) + " (--" + std::string(what) + " CODE)"
                           : "You have no " + std::string(what) + " " + name +
                                 ". Add it: tarvik equipment add-" + std::string(what) + " " + choice.code +
                                 " " + (choice.serialNumber.empty() ? "SERIAL" : choice.serialNumber));
    };
    if (equipment.currentTool().record.get(tool::code).empty()) throw missing("tool", tool);
    if (equipment.currentWinch().record.get(winch::code).empty()) throw missing("winch", winch);
    if (equipment.currentTool().channels() == 0) {
        throw Failure(ErrorNumber::badFile, "The tool " + equipment.currentTool().record.get(tool::code) +
                                                " has no mode " + std::to_string(mode) +
                                                "; leave --mode out, or name the other one");
    }
}

int runLog(const Arguments& arguments) {
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    const bool recording = !arguments.has("--no-record");
    const RunChoice choice = runChoice(arguments);
    const int mode = toolMode(arguments);
    const RunEnds ends{.keptScans = arguments.whole("--scans", {.least = 1}),
                       .seconds = arguments.number("--seconds", {.least = 0.1}),
                       .depth = arguments.number("--until-depth", depths)};
    const auto depthToSet = arguments.number("--set-depth", depths);

    // Whoever switches recording off on the command line has answered the question whether that is right.
    Terminal terminal(recording ? Answer::no : Answer::yes);
    Session session(arguments, terminal);
    Program& program = session.program();
    applyOptions(arguments, program.settings);
    const RunOrder order = orderFrom(arguments, program);
    loadEquipment(program.settings, mode, program.equipment);

    if (!session.acquire()) return exitFailed;
    if (depthToSet) {
        const DepthSetting outcome =
            setWinchDepth(program.lcu, program.log, *depthToSet, order.setup.winchDepthFactor);
        if (outcome != DepthSetting::done) {
            std::cerr << "The depth could not be set to " << *depthToSet << " m. "
                      << depthSettingRemedy(outcome) << "\n";
            return exitFailed;
        }
    }

    ConsoleRunView view(program.clock, session.signals(), ends, choice, recording, terminal.lines());
    RunModules modules{
        program.errors, program.errorLog, program.log,       terminal.console(), view,
        program.state,  program.clock,    program.files,     program.serial,     program.link,
        program.port,   program.lcu,      program.equipment, program.runReader,  program.runWriter};
    const RunResult result = LoggingRun(modules).comstartlogging(order);
    // A run that failed half-way has a file, too.
    const bool finished = result == RunResult::finished;
    if (recording && (finished || view.scansWritten() > 0)) std::cout << view.file().string() << "\n";
    return finished ? exitDone : exitFailed;
}

} // namespace

Verb logVerb() {
    return {.name = "log",
            .usage = "log --project P --hole H --tool CODE --winch CODE [options]",
            .purpose =
                "a logging run; prints the run file's path last\n"
                "Ends at --scans, --seconds or --until-depth, at the end of the interval, or with Ctrl-C.\n"
                "What is not said comes from the settings; nothing said here is saved.",
            .options = {{"--project", "P", "the project"},
                        {"--hole", "H", "the hole"},
                        {"--tool", "CODE[:SERIAL]", "one of your tools"},
                        {"--mode", "1|2", "its mode (default 1)"},
                        {"--winch", "CODE[:SERIAL]", "one of your winches"},
                        {"--units", "U", "Metres or Feet: the unit of the file"},
                        {"--sampling", "S", "TIME or DEPTH"},
                        {"--interval", "X", "seconds by time, centimetres of cable by depth"},
                        {"--direction", "D", "DOWN or UP"},
                        {"--top", "M", "top of the logged interval, metres"},
                        {"--bottom", "M", "bottom of the logged interval, metres"},
                        {"--end-distance", "M", "end the run when less than this is left, metres"},
                        {"--set-depth", "M", "set the winch depth in the LCU first, metres"},
                        {"--declination", "DEG", "magnetic declination for the deviation tool"},
                        {"--scans", "N", "end after N kept scans"},
                        {"--seconds", "S", "end after S seconds"},
                        {"--until-depth", "M", "end at this depth, metres"},
                        {"--append", "", "append to the tool's latest run in the hole"},
                        {"--new", "", "start a new run (default)"},
                        {"--no-record", "", "write no file"},
                        {"--trace", "FILE", "write a transcript of the serial line"}},
            .run = runLog};
}

} // namespace tarvik
