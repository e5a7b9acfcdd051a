// A log written as a picture (PNG), as pages (PDF) or as a drawing (SVG).
#pragma once

#include "drawing/page_painter.h"
#include "files/progress.h"
#include "platform/files.h"

namespace tarvik {

struct PlotTarget {
    Path file;                ///< its ending says what is written: .png, .pdf or .svg
    Paper paper;              ///< a PNG or an SVG is one page, as long as the log
    double dotsPerInch = 150; ///< of a PNG
};

/// Throws a Failure that names the file and the remedy. A page that is drawn is half of the work on it.
void writePlot(const LogSheet& sheet, const PlotTarget& target, const Progress& progress = {});

} // namespace tarvik
