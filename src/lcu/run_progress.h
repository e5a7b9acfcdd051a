// The texts that tell how long a run has gone on and when it will be done.
#pragma once

#include "base/civil_time.h"
#include "base/run_setup.h"

#include <optional>
#include <string>

namespace tarvik {

struct RunProgress {
    double elapsedMinutes = 0;
    std::optional<double> remainingMinutes = {}; ///< nothing when no speed or no end is known
    bool ended = false;
    CivilTime endTime = {}; ///< when the run ended, once it has
};

/// " Elapsed logging time 12 mins", " Elapsed logging time 1 hr 5 mins".
[[nodiscard]] std::string elapsedText(double minutes);

/// " Finish in 8 mins at 14:32", " Completed 20 mins at 14:40" or " Time to completion unknown"; empty for a
/// run by time, which has no end to reach.
[[nodiscard]] std::string completionText(const RunProgress& progress, Sampling sampling,
                                         const CivilTime& now);

/// Minutes to the end of the logged interval at `metresPerMinute`; nothing without a speed or an end.
[[nodiscard]] std::optional<double> remainingMinutes(const RunSetup& setup, double depthMetres,
                                                     double metresPerMinute);

} // namespace tarvik
