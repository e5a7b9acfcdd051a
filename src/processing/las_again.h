// A LAS file that was imported and is written again: what the file itself said holds where nothing else is
// asked for, so that an export of ours comes out to the byte as it went in.
#pragma once

#include "processing/las_export.h"

namespace tarvik {

/// Null text, decimals (2 to 5), azimuth and inclination of the file; the usual options for a run file.
[[nodiscard]] LasExportOptions lasOptionsFor(const ReviewLog& log);

/// The header's STRT and STOP where they enclose the loaded depths: an export may have been asked to begin
/// before the first or to end behind the last of them. Nothing for a run file, or when rows were not loaded.
struct LasInterval {
    double start;
    double stop;
};
[[nodiscard]] std::optional<LasInterval> lasHeaderInterval(const ReviewLog& log);

/// The STEP of loaded depths that go out as they are: the header's, where the depths, which are rounded to
/// hundredths, lie evenly by it; 0 where they do not.
[[nodiscard]] double lasHeaderStep(const LasFacts& facts, const std::vector<double>& depth);

} // namespace tarvik
