// tarvik log: a logging run, from the search for the LCU to the run file's path.
#include "cli/console_operator.h"
#include "cli/console_run_view.h"
#include "cli/stop_signals.h"
#include "cli/verb.h"

#include "base/text.h"
#include "lcu/depth_setting.h"
#include "lcu/logging_run.h"

#include <array>
#include <iostream>
#include <limits>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 2> unitNames{"Metres", "Feet"};
constexpr std::array<std::string_view, 2> samplingNames{"TIME", "DEPTH"};
constexpr std::array<std::string_view, 2> directionNames{"DOWN", "UP"};

/// "CODE" or "CODE:SERIAL"; without the option what the settings hold.
EquipmentChoice choiceFrom(const std::optional<std::string>& option, const EquipmentChoice& stored) {
    if (!option) return stored;
    const auto colon = option->find(':');
    if (colon == std::string::npos) return {*option, ""};
    return {option->substr(0, colon), option->substr(colon + 1)};
}

/// What the options say instead of the settings, for this run only.
void applyOptions(const Arguments& arguments, Settings& settings) {
    if (const auto project = arguments.text("--project")) settings.currentProject = *project;
    if (const auto hole = arguments.text("--hole")) settings.hole.holeId = *hole;
    if (const auto units = arguments.oneOf("--units", unitNames)) settings.depthUnits = *units;
    if (const auto sampling = arguments.oneOf("--sampling", samplingNames))
        settings.samplingMethod = *sampling;
    if (const auto interval = arguments.number("--interval")) settings.samplingInterval = *interval;
    if (const auto direction = arguments.oneOf("--direction", directionNames))
        settings.logDirection = *direction;
    if (const auto declination = arguments.number("--declination")) settings.declination = *declination;
}

/// One limit given leaves the other side open.
void applyLimits(const Arguments& arguments, RunSetup& setup) {
    constexpr double open = 1e9;
    const auto top = arguments.number("--top");
    const auto bottom = arguments.number("--bottom");
    setup.endDistance = arguments.number("--end-distance").value_or(0);
    setup.limitsOverride = !top && !bottom;
    setup.topDepth = top.value_or(-open);
    setup.bottomDepth = bottom.value_or(open);
    if (!setup.limitsOverride && setup.topDepth >= setup.bottomDepth) {
        throw UsageError("--top must be less than --bottom");
    }
}

RunSetup setupFrom(const Arguments& arguments, const Settings& settings) {
    RunSetup setup;
    setup.sampling = settings.sampling();
    setup.interval = static_cast<float>(settings.samplingInterval.value());
    setup.direction = settings.direction();
    setup.units = settings.units();
    setup.winchDepthFactor = settings.winchScaleFactor.value();
    setup.declination = static_cast<float>(settings.declination.value());
    setup.magneticMarker = settings.magneticMarker;
    applyLimits(arguments, setup);
    const bool byDepth = setup.sampling == Sampling::depth;
    const float least = byDepth ? 1.0F : 0.01F;
    if (!(setup.interval >= least)) {
        throw UsageError(byDepth ? "the sampling interval must be 1 cm or more (--interval)"
                                 : "the sampling interval must be 0.01 s or more (--interval)");
    }
    return setup;
}

RunChoice runChoice(const Arguments& arguments) {
    if (arguments.has("--append") && arguments.has("--new")) throw UsageError("--append or --new, not both");
    return arguments.has("--append") ? RunChoice::append : RunChoice::newRun;
}

RunOrder orderFrom(const Program& program, const Settings& settings, const RunSetup& setup) {
    const std::string project(trimmed(settings.currentProject));
    if (project.empty()) throw UsageError("You must select a project (--project P)");
    const std::string hole(trimmed(settings.hole.holeId));
    if (hole.empty()) throw UsageError("You must select a hole (--hole H)");
    return {.project = project,
            .projectFolder = program.places.projectsFolder(settings.projectDrive) / project,
            .hole = hole,
            .holeDetails = settings.hole,
            .setup = setup,
            .screenScale = {}};
}

int toolMode(const Arguments& arguments) {
    const long mode = arguments.whole("--mode").value_or(1);
    if (mode != 1 && mode != 2) throw UsageError("--mode expects 1 or 2");
    return static_cast<int>(mode);
}

void loadEquipment(const Arguments& arguments, const Settings& settings, int mode, ToolWinchData& equipment) {
    const EquipmentChoice tool =
        choiceFrom(arguments.text("--tool"), {settings.currentTool, settings.currentToolSerial});
    const EquipmentChoice winch =
        choiceFrom(arguments.text("--winch"), {settings.currentWinch, settings.currentWinchSerial});
    equipment.ToolWinchData_loadcurrentttoolwinch(tool, winch, mode);
    const auto missing = [](std::string_view what, const EquipmentChoice& choice) {
        const std::string name =
            choice.serialNumber.empty() ? choice.code : choice.code + ":" + choice.serialNumber;
        return Failure(ErrorNumber::badFile,
                       choice.code.empty()
                           ? "You must select a " + std::string(what) + " (--" + std::string(what) + " CODE)"
                           : "You have no " + std::string(what) + " " + name +
                                 ". Add it: tarvik equipment add-" + std::string(what) + " " + choice.code +
                                 " SERIAL");
    };
    if (equipment.currentTool().record.get(tool::code).empty()) throw missing("tool", tool);
    if (equipment.currentWinch().record.get(winch::code).empty()) throw missing("winch", winch);
    if (equipment.currentTool().channels() == 0) {
        throw Failure(ErrorNumber::badFile, "The tool " + equipment.currentTool().record.get(tool::code) +
                                                " has no mode " + std::to_string(mode));
    }
}

int runLog(const Arguments& arguments) {
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    const bool recording = !arguments.has("--no-record");
    const RunChoice choice = runChoice(arguments);
    const int mode = toolMode(arguments);
    ProgramOptions options = programOptions(arguments);
    if (const auto trace = arguments.text("--trace")) options.traceFile = *trace;

    // Whoever switches recording off on the command line has answered the question whether that is right.
    ConsoleOperator console(recording ? Answer::no : Answer::yes);
    Program program(options, console);
    Settings settings = program.settings;
    applyOptions(arguments, settings);
    const RunOrder order = orderFrom(program, settings, setupFrom(arguments, settings));
    loadEquipment(arguments, settings, mode, program.equipment);

    const StopSignals signals;
    const auto stop = [&] { return signals.arrived(); };
    const auto ports = searchedPorts(arguments, program.settings);
    if (program.search.LCU_Locate(ports, stop) != SearchResult::found) {
        std::cerr << "No LCU was found. Is it switched on and connected? Name its device with --com1 DEV.\n";
        return exitFailed;
    }
    if (const auto depth = arguments.number("--set-depth");
        depth && !setWinchDepth(program.lcu, program.log, *depth)) {
        std::cerr << "The depth could not be set to " << *depth << " m: stop the winch and try again.\n";
        program.port.close();
        return exitFailed;
    }

    ConsoleRunView view(program.clock, signals,
                        {.keptScans = arguments.whole("--scans"),
                         .seconds = arguments.number("--seconds"),
                         .depth = arguments.number("--until-depth")},
                        choice, recording);
    RunModules modules{program.errors, program.errorLog,  program.log,       console,          view,
                       program.clock,  program.files,     program.serial,    program.link,     program.port,
                       program.lcu,    program.equipment, program.runReader, program.runWriter};
    const RunResult result = LoggingRun(modules).comstartlogging(order);
    program.port.close();
    if (result != RunResult::finished) return exitFailed;
    if (recording) std::cout << view.file().string() << "\n";
    return exitDone;
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
