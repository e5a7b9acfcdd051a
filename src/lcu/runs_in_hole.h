// Has this tool been run in the current hole before?
#pragma once

#include "app/settings.h"
#include "files/run_file_reader.h"
#include "lcu/run_names.h"
#include "platform/places.h"

#include <string>
#include <string_view>

namespace tarvik {

struct RunsInHole {
    LoggingRuns runs;
    std::string runsText;       ///< empty without runs
    std::string depthRangeText; ///< of the latest run; empty when it has no depth or cannot be read
};

/// A latest run that cannot be read is reported.
[[nodiscard]] RunsInHole runsInHole(const Files& files, RunFileReader& reader, const Settings& settings,
                                    const Places& places, std::string_view toolCode);

} // namespace tarvik
