#include "lcu/run_tally.h"

#include "base/number_picture.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tarvik {

void logRunSummary(StatusLog& log, const RunTally& tally, double elapsedMinutes, DepthUnits units) {
    const auto depthText = [&](double metres) { return formatPicture(fromMetres(metres, units), "###0.00"); };

    log.blue("Logging run finished - time elapsed " + formatPicture(elapsedMinutes, "##0.0") + " mins");
    if (tally.written > 0) {
        const auto [top, bottom] = std::minmax(tally.onFile.first, tally.onFile.last);
        log.black("Depth range on file " + depthText(top) + " to " + depthText(bottom));
        const double range = fromMetres(bottom - top, units);
        const double speed = elapsedMinutes > 0 ? range / elapsedMinutes : 0;
        log.black("Average logging speed " + formatPicture(speed, "#0.0"));
    } else {
        log.black("NOTE : No data scans written to file.");
    }
    log.black("Depth range tripped by tool " + depthText(tally.byTool.first) + " to " +
              depthText(tally.byTool.last));
}

} // namespace tarvik
