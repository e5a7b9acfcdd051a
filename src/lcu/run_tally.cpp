#include "lcu/run_tally.h"

#include "base/number_picture.h"

#include <algorithm>
#include <string>

namespace tarvik {

namespace {

std::string depthText(double depth) {
    return formatPicture(depth, "###0.00");
}

} // namespace

void logRunSummary(StatusLog& log, const RunTally& tally, const WrittenScans& written, double elapsedMinutes,
                   DepthUnits units) {
    log.blue("Logging run finished - time elapsed " + formatPicture(elapsedMinutes, "##0.0") + " mins");
    if (written.count > 0) {
        const auto [top, bottom] = std::minmax(written.firstDepth, written.lastDepth);
        log.black("Depth range on file " + depthText(top) + " to " + depthText(bottom));
        const double speed = elapsedMinutes > 0 ? (bottom - top) / elapsedMinutes : 0;
        log.black("Average logging speed " + formatPicture(speed, "#0.0"));
    } else {
        log.black("NOTE : No data scans written to file.");
    }
    log.black("Depth range tripped by tool " + depthText(fromMetres(tally.firstSeen, units)) + " to " +
              depthText(fromMetres(tally.lastSeen, units)));
}

} // namespace tarvik
