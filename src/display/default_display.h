// The display that a log gets before anybody has chosen one: its channels sorted into tracks as logs are read
// (correlation logs left of the depths, the others right of them), on the scales of the tool record where it
// has them, else on the customary ones, else on round ones around the values.
#pragma once

#include "base/review_log.h"
#include "display/log_display.h"

#include <span>

namespace tarvik {

struct DisplayChannel {
    std::string name;
    std::string unit;
    bool calibrated = true;
    ScalePair scale;               ///< left equal to right: none is known
    std::span<const float> values; ///< looked at only when no scale is known; may be empty
};

[[nodiscard]] LogDisplay defaultDisplay(std::span<const DisplayChannel> channels, DepthUnits units,
                                        const Scheme& scheme);

/// With the casing and the fluid level of the hole, and the notes of the run that carry a depth, as marks.
[[nodiscard]] LogDisplay defaultDisplay(const ReviewLog& log, const Scheme& scheme);

/// Of a run that is starting: nothing is measured yet.
[[nodiscard]] LogDisplay defaultDisplay(const RunHeader& header, const Scheme& scheme);

/// Round numbers around the values: 3.2 … 88 gives 0 and 100. 0 and 1 where there are no values.
[[nodiscard]] ScalePair roundScale(std::span<const float> values);

} // namespace tarvik
