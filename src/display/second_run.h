// A second run beside or over the one under review: the same tracks and scales, so that the eye compares
// values and not drawings.
#pragma once

#include "base/review_log.h"
#include "display/display_view.h"
#include "display/log_display.h"
#include "display/review_tools.h"

#include <string>

namespace tarvik {

enum class Comparison { over, beside };

/// What is drawn of a second run. Views of a log that outlives it.
struct SecondRun {
    Comparison how = Comparison::over;
    LogData data;
    LogDisplay usual; ///< the one that the log gets by itself, with its marks
};
[[nodiscard]] SecondRun secondRun(const ReviewLog& log, Comparison how, const Scheme& scheme);

/// Which run is drawn how, and what of the display only the first one has.
[[nodiscard]] std::string comparisonLegend(const LogDisplay& display, const ReviewLog& first,
                                           const ReviewLog& other, const SecondRun& second);

/// Between two runs side by side, in whole painter units.
[[nodiscard]] double paneGap(const DisplayView& view);
/// Of a view as wide as the whole picture the part that one of the two runs has.
[[nodiscard]] DisplayView paneOf(DisplayView whole, Comparison how);

/// The curves of the display for the second run (one it lacks is not drawn), each so that it is not taken for
/// the first run's: another line style, thinner, in a tint of its ink, without fill. No marks.
[[nodiscard]] LogDisplay overlaid(const LogDisplay& display);

/// Whether the second run has channels that the first has not: that of another tool, mostly.
[[nodiscard]] bool isOfAnotherKind(const LogData& first, const SecondRun& second);
/// The display for a run shown beside the first, with marks of its own: that of the first, or for a run of
/// another kind its own, with the first one's scales where both have a channel.
[[nodiscard]] LogDisplay beside(const LogDisplay& display, const LogData& first, const SecondRun& second);

/// From the shallower top to the deeper bottom; a run without steps does not count.
[[nodiscard]] Extent extentOfBoth(const LogData& first, const LogData& second, Axis axis);

/// What the second run does not have of the display: "GR, CALI"; empty when it has everything.
[[nodiscard]] std::string missingIn(const LogDisplay& display, const LogData& second);

} // namespace tarvik
