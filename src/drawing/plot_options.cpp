#include "drawing/plot_options.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "display/bullseye.h"
#include "display/default_display.h"
#include "display/display_edits.h"
#include "display/display_template.h"
#include "display/print_order.h"
#include "drawing/print_sheet.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 3> schemeNames{"paper", "light", "dark"};
constexpr std::array<std::string_view, 2> axisNames{"depth", "time"};
constexpr std::array<std::string_view, 4> paperNames{"A4", "A3", "Letter", "Continuous"};
constexpr std::array<std::string_view, 3> deviationNames{bullseyeCaption, magneticsCaption, deviationCaption};

double scaleFrom(const std::string& text) {
    if (const auto scale = scaleFromText(text)) return *scale;
    throw UsageError("--scale expects 1:N, such as 1:200, not \"" + text + "\"");
}

/// "NAME=N"; the name may hold an equals sign, the number cannot.
void setFilter(LogDisplay& display, const std::string& text) {
    const auto equals = text.rfind('=');
    if (equals == std::string::npos || !filterProblem(std::string_view(text).substr(equals + 1)).empty()) {
        throw UsageError("--filter expects NAME=POINTS, not \"" + text + "\"");
    }
    const std::string name = text.substr(0, equals);
    bool found = false;
    for (Track& track : display.tracks) {
        for (LogCurve& curve : track.curves) {
            if (curve.channel != name) continue;
            curve.filter = text.substr(equals + 1);
            found = true;
        }
    }
    if (!found) throw UsageError("--filter: the display has no curve \"" + name + "\"");
}

std::string textOf(const Files& files, const Path& file) {
    const Bytes bytes = files.read(file);
    return {bytes.begin(), bytes.end()};
}

LogDisplay displayFrom(const Arguments& arguments, const ReviewLog& log, const LogData& data,
                       const Files& files) {
    const Scheme scheme = *schemeNamed(arguments.oneOf("--scheme", schemeNames).value_or("paper"));
    LogDisplay display = defaultDisplay(log, scheme);
    if (const auto file = arguments.name("--template")) {
        LogDisplay read = displayFromTemplate(textOf(files, *file), scheme, *file);
        read.marks = std::move(display.marks);
        display = std::move(read);
        fitToData(display, data);
    }
    if (const auto caption = arguments.oneOf("--deviation", deviationNames)) {
        display = deviationDisplay(display, *caption);
        if (shownCurves(display.tracks.front()).empty())
            throw UsageError("--deviation " + std::string(*caption) + ": the log has none of its curves");
    }
    for (const std::string& filter : arguments.all("--filter")) setFilter(display, filter);
    return display;
}

Axis axisFrom(const Arguments& arguments, const LogData& data) {
    const auto asked = arguments.oneOf("--by", axisNames);
    if (!asked) return data.usualAxis();
    const Axis axis = *asked == "time" ? Axis::time : Axis::depth;
    if (!data.has(axis)) throw UsageError("--by time: the log has no times");
    return axis;
}

/// In the unit of the first log, whatever that of the second is.
Extent wholeExtent(const LogSheet& sheet, double unit) {
    const Axis axis = sheet.view.axis;
    const Extent whole =
        sheet.second ? extentOfBoth(sheet.data, sheet.second->data, axis) : extentOf(sheet.data, axis);
    return {whole.from / unit, whole.to / unit};
}

} // namespace

std::vector<Option> plotOptions() {
    return {{"-o", "FILE", "a picture (.png), pages (.pdf) or a drawing (.svg)"},
            {"--scale", "1:N", "depth scale (default 1:200)"},
            {"--by", "AXIS", "depth or time (default: depth, unless the tool stood still)"},
            {"--from", "D", "first depth, or second (default: the first on file)"},
            {"--to", "D", "last depth, or second (default: the last on file)"},
            {"--paper", "NAME", "A4, A3, Letter or Continuous (default A4)"},
            {"--dpi", "N", "dots to the inch of a picture (default 150)"},
            {"--scheme", "NAME", "paper, light or dark (default paper)"},
            {"--filter", "NAME=N", "smooth a curve over N points; may be repeated"},
            {"--equally-spaced", "", "each curve in a track of its own, all equally wide"},
            {"--deviation", "NAME", "of a deviation run: Bullseye (plan view), Magnetics or Deviation"},
            {"--template", "FILE", "tracks and curves from this template"},
            {"--save-template", "FILE", "write tracks and curves of this plot as a template"},
            {"--with", "FILE", "a second run or LAS file, laid over the first in paler lines"},
            {"--beside", "", "with --with: the second beside the first, each in half of the width"},
            {"--no-heading", "", "without the log heading"}};
}

LogSheet sheetFrom(const Arguments& arguments, const ReviewLog& log, const ReviewLog* other, bool inches,
                   const Files& files) {
    const double scale = scaleFrom(arguments.text("--scale").value_or("1:200"));
    LogSheet sheet;
    sheet.data = logDataOf(log);
    sheet.display = displayFrom(arguments, log, sheet.data, files);
    sheet.view = viewAtScale(scale, millimetresPerInch, axisFrom(arguments, sheet.data));
    sheet.view.equallySpaced = arguments.has("--equally-spaced");
    sheet.withHeading = !arguments.has("--no-heading");
    sheet.heading = headingOf(log, sheet.display);
    sayScale(sheet, log, inches);
    if (other != nullptr) {
        compareOnSheet(sheet, log, *other, arguments.has("--beside") ? Comparison::beside : Comparison::over);
    }
    const double unit = sheet.data.unitOf(sheet.view.axis);
    const auto [first, last] = wholeExtent(sheet, unit);
    sheet.from = arguments.number("--from").value_or(first) * unit;
    sheet.to = arguments.number("--to").value_or(last) * unit;
    if (sheet.to <= sheet.from && first >= last) {
        throw Failure(ErrorNumber::badFile,
                      "There is nothing to draw: the log has " +
                          (log.depth.empty() ? std::string("no depth")
                                             : "one depth only, " + formatPicture(first, "0.00")));
    }
    if (sheet.to <= sheet.from || sheet.to < first * unit || sheet.from > last * unit) {
        throw UsageError("there is no log between --from and --to; it runs from " +
                         formatPicture(first, "0.00") + " to " + formatPicture(last, "0.00"));
    }
    return sheet;
}

PlotTarget targetFrom(const Arguments& arguments) {
    const auto output = arguments.name("-o");
    if (!output) throw UsageError("-o OUT.png, OUT.pdf or OUT.svg is missing");
    PlotTarget target;
    target.file = *output;
    target.paper = *paperNamed(arguments.oneOf("--paper", paperNames).value_or("A4"));
    target.dotsPerInch = arguments.number("--dpi", {20, 1200}).value_or(target.dotsPerInch);
    return target;
}

} // namespace tarvik
