// What a run has kept and seen, and the lines that say so at its end.
#pragma once

#include "app/status_log.h"
#include "base/depth_units.h"

#include <cstdint>
#include <optional>

namespace tarvik {

struct DepthSpan {
    double first = 0; ///< metres
    double last = 0;

    void extend(double depth, bool isFirst) {
        if (isFirst) first = depth;
        last = depth;
    }
};

struct RunTally {
    long kept = 0;    ///< scans that were samples of the run
    long written = 0; ///< of these, the ones on file
    long seen = 0;    ///< decoded scans that carried a depth
    DepthSpan onFile;
    DepthSpan byTool;

    void sawDepth(double metres) { byTool.extend(metres, seen++ == 0); }
    void wroteDepth(double metres) { onFile.extend(metres, written++ == 0); }
};

/// "Logging run finished - …" and the lines behind it. Depths are in the run's depth unit, the average speed
/// is the depth range on file over the elapsed time.
void logRunSummary(StatusLog& log, const RunTally& tally, double elapsedMinutes, DepthUnits units);

} // namespace tarvik
