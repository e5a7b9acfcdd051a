// The latest run of the tool, read back because the run goes on in its file.
#pragma once

#include "base/review_log.h"
#include "lcu/acquisition_ring.h"
#include "lcu/deviation.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvik {

/// Names of the channels whose polynomial is not the one that the file's header gives. A header has 20 slots;
/// what stands behind them is not compared.
[[nodiscard]] std::vector<std::string> recalibratedChannels(const RunHeader& current,
                                                            const RunHeader& onFile);

/// The channel value that a stored value was calibrated from. Only a straight line that is not level can be
/// undone; nothing for any other polynomial.
[[nodiscard]] std::optional<double> channelValue(const Calibration& calibration, float stored);

/// Where the hole had come to: the last values of the channels "East" and "North", to the whole centimetre
/// that the file keeps. A scan without time was stored with zeros everywhere, the total field too, and is
/// passed over. Zero for a run without scans. Nothing when the calibration of the two cannot be undone or is
/// another one now: what is appended could not be told from what stands there.
[[nodiscard]] std::optional<HoleWay> wayAtEnd(const ReviewLog& run, const RunHeader& current);

/// The scans of the earlier run in front of those to come: depths in metres, times before 0, values under the
/// calibrations now in use (as stored where the earlier ones cannot be undone).
void showEarlierScans(const ReviewLog& run, const RunHeader& current, AcquisitionRing& ring);

} // namespace tarvik
