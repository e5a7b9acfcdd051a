// Notes that say at which depth they belong, as marks of a log.
//
// A line of notes is one when it begins with a depth and its unit, or with "@" and a depth in the run's unit:
// "45.2 m: lost circulation", "@ 88.5 stuck, freed". Any other line is left to the heading and the notes
// panel: a number somewhere in a sentence may be anything.
#pragma once

#include "base/depth_units.h"
#include "display/log_display.h"
#include "display/review_tools.h"
#include "platform/files.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tarvik {

/// Metres: the number that a text begins with, in the unit that follows it, else in `units`. A comma may
/// stand for the point.
[[nodiscard]] std::optional<double> depthSaid(std::string_view text, DepthUnits units);

/// In the order of the lines. A note without a text beside its depth is none.
[[nodiscard]] std::vector<DepthMark> annotationsIn(std::string_view notes, DepthUnits units);

/// Those of the notes that the hole has beside the run file, within the log. Empty when there are no notes;
/// throws a Failure when they cannot be read.
[[nodiscard]] std::vector<DepthMark> holeAnnotations(const Files& files, const Path& runFile,
                                                     const ReviewLog& log);

/// Adds those that are not there yet.
void addMarks(std::vector<DepthMark>& marks, const std::vector<DepthMark>& more);

} // namespace tarvik
