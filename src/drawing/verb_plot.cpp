#include "drawing/verb_plot.h"

#include "cli/terminal.h"
#include "display/default_display.h"
#include "drawing/log_painter.h"

#include <QGuiApplication>
#include <QImage>

#include <cmath>
#include <iostream>

namespace tarvik {

namespace {

int runPlot(const Arguments& arguments) {
    const Path file = arguments.only("run file");
    const auto output = arguments.name("-o");
    if (!output) throw UsageError("-o OUT.png is missing");
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    const auto log = program.runReader.Tarvikfileopen(file);
    if (!log) return exitFailed;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "tarvik";
    char* words[] = {name, nullptr};
    const QGuiApplication application(count, words);
    const LogDisplay display = defaultDisplay(*log, paperScheme());
    DisplayView view = viewAtScale(200, 150);
    view.width = std::round(view.millimetres(190));
    const LogData data = logDataOf(*log);
    view.top = data.depth.empty() ? 0 : toMetres(data.depth.front(), data.units);
    const double bottom = data.depth.empty() ? 1 : toMetres(data.depth.back(), data.units);
    view.height = std::ceil(LogPainter::headHeight(display, view) + view.yOf(bottom));
    QImage image(static_cast<int>(view.width), static_cast<int>(view.height), QImage::Format_RGB32);
    QPainter painter(&image);
    LogPainter().paint(painter, display, data, view);
    painter.end();
    if (!image.save(QString::fromStdString(*output))) return exitFailed;
    std::cout << *output << "\n";
    return exitDone;
}

} // namespace

Verb plotVerb() {
    return {.name = "plot",
            .usage = "plot RUN.kvx -o OUT.png [options]",
            .purpose = "draw a run as a picture to scale; prints its path",
            .options = {{"-o", "FILE", "the picture"}},
            .run = runPlot};
}

} // namespace tarvik
