// The plan view of a deviation run on a page of its own.
#pragma once

#include "drawing/plot_file.h"

namespace tarvik {

/// Throws a Failure that names the file and the remedy.
void writePlan(const LogSheet& sheet, const PlotTarget& target);

} // namespace tarvik
