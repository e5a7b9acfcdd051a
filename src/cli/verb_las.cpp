// tarvik las: a run written as a LAS 2.0 file.
#include "cli/terminal.h"

#include <iostream>

namespace tarvik {

namespace {

/// "NAME=N"; the name may hold an equals sign, the number cannot.
ChannelFilter filterFrom(const std::string& text) {
    const auto equals = text.rfind('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == text.size()) {
        throw UsageError("--filter expects NAME=POINTS, not \"" + text + "\"");
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

LasExportOptions exportOptions(const Arguments& arguments) {
    LasExportOptions options;
    options.start = arguments.number("--start");
    options.stop = arguments.number("--stop");
    options.step = arguments.number("--step");
    if (const auto text = arguments.text("--null")) options.nullText = *text;
    if (const auto decimals = arguments.whole("--decimals")) options.decimals = *decimals;
    for (const std::string& filter : arguments.all("--filter")) options.filters.push_back(filterFrom(filter));
    options.channels = arguments.all("--channel");
    options.holeAzimuth = arguments.text("--azimuth").value_or("");
    options.holeInclination = arguments.text("--inclination").value_or("");
    return options;
}

int runLas(const Arguments& arguments) {
    const Path run = arguments.only("run file");
    const auto output = arguments.name("-o");
    if (!output) throw UsageError("-o OUT.las is missing");
    const LasExportOptions options = exportOptions(arguments);
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    const auto log = program.runReader.Tarvikfileopen(run);
    if (!log) return exitFailed;
    const auto show = [](std::string_view line) { std::cerr << line << "\n"; };
    if (!program.lasExport.Logprintexport_exportLASfile(*log, *output, options, show)) return exitFailed;
    std::cout << *output << "\n";
    return exitDone;
}

} // namespace

Verb lasVerb() {
    return {.name = "las",
            .usage = "las RUN.kvx -o OUT.las [options]",
            .purpose = "write a run as a LAS 2.0 file; prints its path\nDepths are in the run's depth unit.",
            .options = {{"-o", "FILE", "the LAS file"},
                        {"--start", "D", "first depth (default: the first on file)"},
                        {"--stop", "D", "last depth (default: the last on file)"},
                        {"--step", "D", "interpolate to this regular step (default: the steps as logged)"},
                        {"--null", "V", "what stands for no value (default -999.25)"},
                        {"--decimals", "N", "decimals of the data, 2 to 5 (default 2)"},
                        {"--filter", "NAME=N", "smooth a channel over N points; may be repeated"},
                        {"--channel", "NAME", "export this channel; may be repeated (default: all recorded)"},
                        {"--azimuth", "TEXT", "hole azimuth in degrees for the header"},
                        {"--inclination", "TEXT", "hole inclination in degrees for the header"}},
            .run = runLas};
}

} // namespace tarvik
