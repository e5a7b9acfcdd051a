// tarvik calibrations: the history of the sensors' calibrations.
#include "cli/terminal.h"

#include <iostream>

namespace tarvik {

namespace {

constexpr const char* exportName = "kvxcalib.txt"; ///< on drive C

int list(CalibrationHistory& history, const CalibrationFilter& filter) {
    const CalibrationList found = history.PolyCalibration_loadcalibrationhistorydata(filter);
    if (found.summary.empty()) return exitFailed;
    std::cout << found.summary << "\n";
    for (const CalibrationRow& row : found.rows) {
        std::cout << (row.bold ? "* " : "  ") << row.record + 1 << "\t" << row.toolCode << " SN-"
                  << row.serialNumber << "\t" << row.sensorName << "\t" << row.text << "\n";
    }
    return exitDone;
}

int exportText(Program& program, const CalibrationFilter& filter) {
    const Path file = program.places.drive("C") / exportName;
    if (!program.calibrations.PolyCalibration_exportcalibrationhistorydata(filter, file)) return exitFailed;
    std::cout << file.string() << "\n";
    return exitDone;
}

int runCalibrations(const Arguments& arguments) {
    const auto& words = arguments.rest();
    const std::string act = words.empty() ? "list" : words.front();
    if (words.size() > 1 || (act != "list" && act != "export")) {
        throw UsageError("calibrations expects list or export");
    }
    const CalibrationFilter filter{arguments.text("--tool"), arguments.text("--serial"),
                                   arguments.text("--sensor")};
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    return act == "list" ? list(program.calibrations, filter) : exportText(program, filter);
}

} // namespace

Verb calibrationsVerb() {
    return {.name = "calibrations",
            .usage = "calibrations [list|export] [options]",
            .purpose = "list the calibrations on record, oldest first, or export them as text\n"
                       "The export goes to kvxcalib.txt on drive C; its path is printed.",
            .options = {{"--tool", "CODE", "of this tool only"},
                        {"--serial", "S", "of this serial number only"},
                        {"--sensor", "NAME", "of this sensor only, in whatever case"}},
            .run = runCalibrations};
}

} // namespace tarvik
