#include "lcu/runs_in_hole.h"

#include "base/text.h"

namespace tarvik {

RunsInHole runsInHole(const Files& files, RunFileReader& reader, const Settings& settings,
                      const Places& places, std::string_view toolCode) {
    RunsInHole found;
    const std::string_view hole = trimmed(settings.hole.holeId);
    if (hole.empty() || toolCode.empty()) return found;
    const Path folder = places.projectsFolder(settings.projectDrive) / trimmed(settings.currentProject);
    found.runs = CheckLoggingRuns(files, folder, hole, toolCode);
    found.runsText = loggingRunsText(found.runs);
    if (found.runs.count > 0) {
        found.depthRangeText = depthRangeText(reader.Utilities_checkfiledepthrange(found.runs.latestFile));
    }
    return found;
}

} // namespace tarvik
