#include "drawing/verb_plot.h"

#include "app/start_up.h"
#include "base/text.h"
#include "cli/terminal.h"
#include "display/default_display.h"
#include "drawing/plot_file.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <iostream>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 3> schemeNames{"paper", "light", "dark"};
constexpr std::array<std::string_view, 4> paperNames{"A4", "A3", "Letter", "Continuous"};
constexpr std::array<std::string_view, 2> axisNames{"depth", "time"};

/// "1:200" or "200".
double scaleFrom(const std::string& text) {
    const std::string_view digits = text.starts_with("1:") ? std::string_view(text).substr(2) : text;
    const auto number = parseNumber(digits);
    if (!number || *number < 0.1 || *number > 1e6) {
        throw UsageError("--scale expects 1:N, such as 1:200, not \"" + text + "\"");
    }
    return *number;
}

LogSheet sheetOf(const ReviewLog& log, const Arguments& arguments) {
    const std::string scale = arguments.text("--scale").value_or("1:200");
    const std::string scheme = arguments.oneOf("--scheme", schemeNames).value_or("paper");
    LogSheet sheet;
    sheet.display = defaultDisplay(log, *schemeNamed(scheme));
    sheet.data = logDataOf(log);
    sheet.view = viewAtScale(scaleFrom(scale), millimetresPerInch);
    sheet.view.equallySpaced = arguments.has("--equally-spaced");
    sheet.withHeading = !arguments.has("--no-heading");
    sheet.heading = headingOf(log, sheet.display, scale.starts_with("1:") ? scale : "1:" + scale);
    const DepthUnits units = log.header.setup.units;
    const double first = log.depth.empty() ? 0 : log.depth.front();
    const double last = log.depth.empty() ? 0 : log.depth.back();
    sheet.from = toMetres(arguments.number("--from").value_or(first), units);
    sheet.to = toMetres(arguments.number("--to").value_or(last), units);
    if (sheet.to <= sheet.from) throw UsageError("there is no log between --from and --to");
    return sheet;
}

PlotTarget targetFrom(const Arguments& arguments) {
    const auto output = arguments.name("-o");
    if (!output) throw UsageError("-o OUT.png, OUT.pdf or OUT.svg is missing");
    PlotTarget target{.file = *output, .paper = {}};
    target.paper = *paperNamed(arguments.oneOf("--paper", paperNames).value_or("A4"));
    target.dotsPerInch = arguments.number("--dpi", {20, 1200}).value_or(target.dotsPerInch);
    return target;
}

/// Pictures need the toolkit's fonts and image formats, but no display.
class Toolkit {
  public:
    Toolkit() : application_(prepared(count_), words_) {}

  private:
    static int& prepared(int& count) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        return count;
    }
    int count_ = 1;
    char name_[7] = "tarvik";
    char* words_[2] = {name_, nullptr};
    QGuiApplication application_;
};

int runPlot(const Arguments& arguments) {
    const Path file = arguments.only("run file");
    const PlotTarget target = targetFrom(arguments);
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    const auto log = program.runReader.Tarvikfileopen(file);
    if (!log) return exitFailed;
    const LogSheet sheet = sheetOf(*log, arguments);
    const Toolkit toolkit;
    writePlot(sheet, target);
    std::cout << target.file.string() << "\n";
    return exitDone;
}

} // namespace

Verb plotVerb() {
    return {.name = "plot",
            .usage = "plot RUN.kvx -o OUT.png|OUT.pdf|OUT.svg [options]",
            .purpose = "draw a run to exact scale; prints the path\nDepths are in the run's depth unit.",
            .options = {{"-o", "FILE", "a picture (.png), pages (.pdf) or a drawing (.svg)"},
                        {"--scale", "1:N", "depth scale (default 1:200)"},
                        {"--from", "D", "first depth (default: the first on file)"},
                        {"--to", "D", "last depth (default: the last on file)"},
                        {"--paper", "NAME", "A4, A3, Letter or Continuous (default A4)"},
                        {"--dpi", "N", "dots to the inch of a picture (default 150)"},
                        {"--scheme", "NAME", "paper, light or dark (default paper)"},
                        {"--equally-spaced", "", "each curve in a track of its own, all equally wide"},
                        {"--no-heading", "", "without the log heading"}},
            .run = runPlot};
}

} // namespace tarvik
