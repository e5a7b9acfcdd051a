// What a LAS file will say, worked out before a byte is written: the chosen channels, filtered and brought to
// the chosen depths.
#pragma once

#include "processing/las_export.h"
#include "processing/las_text.h"

#include <vector>

namespace tarvik {

struct LasData {
    LasWell well;
    std::vector<LasCurve> curves;            ///< without the depth curve
    std::vector<double> depth;               ///< one for each data line
    std::vector<std::vector<float>> columns; ///< one for each curve
};

/// Throws a Failure saying what is wrong with the options, before any work is done. Puts progress and
/// warnings on the list.
[[nodiscard]] LasData prepareLasData(const ReviewLog& log, const LasExportOptions& options,
                                     const ExportList& list);

/// Why start, stop and step cannot be had from the log, as one sentence; empty when they can.
[[nodiscard]] std::string lasDepthsProblem(const ReviewLog& log, const LasExportOptions& options);

} // namespace tarvik
