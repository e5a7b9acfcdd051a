// What a run has kept and seen, and the lines that say so at its end.
#pragma once

#include "app/status_log.h"
#include "base/depth_units.h"
#include "files/run_file_writer.h"

namespace tarvik {

struct RunTally {
    long kept = 0;        ///< scans that were samples of the run
    long seen = 0;        ///< decoded scans that carried a depth
    double firstSeen = 0; ///< metres
    double lastSeen = 0;

    void saw(double metres) {
        if (seen++ == 0) firstSeen = metres;
        lastSeen = metres;
    }
};

/// "Logging run finished - …" and the lines behind it. Depths are in the run's depth unit, which is the
/// file's; the average speed is the depth range on file over the elapsed time.
void logRunSummary(StatusLog& log, const RunTally& tally, const WrittenScans& written, double elapsedMinutes,
                   DepthUnits units);

} // namespace tarvik
