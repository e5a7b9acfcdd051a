// What may stand in the sampling settings, and the words that go with it.
#pragma once

#include "app/settings.h"

#include <string>
#include <string_view>

namespace tarvik {

struct IntervalRange {
    double least;
    double most;
};

/// Seconds by time, centimetres of cable by depth. A depth a metre or more from the last sample is never
/// kept, so by depth an interval has to be less than that.
[[nodiscard]] constexpr IntervalRange intervalRange(Sampling sampling) {
    return sampling == Sampling::depth ? IntervalRange{1, 99} : IntervalRange{0.01, 3600};
}

/// One sentence; empty when the text is an interval that a box can step by.
[[nodiscard]] std::string intervalProblem(Sampling sampling, std::string_view text);

/// What the interval means on the cable: "5 cm (0.164 ft)" with feet, in either unit counted in centimetres.
/// Empty by time and for a text that is no number.
[[nodiscard]] std::string intervalInWords(Sampling sampling, DepthUnits units, std::string_view text);

/// A whole number from `least` to `most`; one sentence, empty when it is one.
[[nodiscard]] std::string wholeNumberProblem(std::string_view text, long long least, long long most);

} // namespace tarvik
