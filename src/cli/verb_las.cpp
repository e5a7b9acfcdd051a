// tarvik las: a run or an imported LAS file written as a LAS 2.0 file.
#include "base/failure.h"
#include "cli/review.h"
#include "processing/las_again.h"

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

/// What is not asked for stays as the file has it.
LasExportOptions exportOptions(const Arguments& arguments, LasExportOptions options) {
    options.start = arguments.number("--start");
    options.stop = arguments.number("--stop");
    options.step = arguments.number("--step");
    if (const auto text = arguments.text("--null")) options.nullText = *text;
    if (const auto decimals = arguments.whole("--decimals")) options.decimals = *decimals;
    for (const std::string& filter : arguments.all("--filter")) options.filters.push_back(filterFrom(filter));
    options.channels = arguments.all("--channel");
    if (const auto azimuth = arguments.text("--azimuth")) options.holeAzimuth = *azimuth;
    if (const auto inclination = arguments.text("--inclination")) options.holeInclination = *inclination;
    return options;
}

int runLas(const Arguments& arguments) {
    const Path file = arguments.only("run or LAS file");
    const auto output = arguments.name("-o");
    if (!output) throw UsageError("-o OUT.las is missing");
    std::ignore = exportOptions(arguments, {}); // wrong usage is told before anything is done
    Review review(arguments);
    const auto log = review.open(file);
    if (!log) return exitFailed;
    const auto show = [](std::string_view line) { std::cerr << line << "\n"; };
    LasExportOptions options = exportOptions(arguments, lasOptionsFor(*log));
    options.source = file;
    if (!review.program().lasExport.Logprintexport_exportLASfile(*log, *output, options, show))
        return exitFailed;
    std::cout << *output << "\n";
    return exitDone;
}

} // namespace

Verb lasVerb() {
    return {.name = "las",
            .usage = "las FILE -o OUT.las [options]",
            .purpose =
                "write a run or a LAS file as a LAS 2.0 file; prints its path\n"
                "Depths are in the file's depth unit. What a LAS file says of its null value, decimals, "
                "azimuth and\ninclination holds unless asked otherwise.",
            .options = {tolerantOption(),
                        {"-o", "FILE", "the LAS file"},
                        {"--start", "D", "first depth (default: the first on file)"},
                        {"--stop", "D", "last depth (default: the last on file)"},
                        {"--step", "D", "interpolate to this regular step (default: the steps as they are)"},
                        {"--null", "V", "what stands for no value (default -999.25)"},
                        {"--decimals", "N", "decimals of the data, 2 to 5 (default 2)"},
                        {"--filter", "NAME=N", "smooth a channel over N points; may be repeated"},
                        {"--channel", "NAME", "export this channel; may be repeated (default: all recorded)"},
                        {"--azimuth", "TEXT", "hole azimuth in degrees for the header"},
                        {"--inclination", "TEXT", "hole inclination in degrees for the header"}},
            .run = runLas};
}

} // namespace tarvik
