// The smoothing filter of one channel, for export and for printing.
//
// A running mean over a window of n points that lives in the array it smooths: from the middle of the second
// window on, what leaves the window has been smoothed already, so the filter is recursive. Prints and exports
// have always looked like that, and comparisons with older ones rely on it. Single precision throughout.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace tarvik {

/// The window length that a filter setting names: nothing for "None". Throws a Failure when the setting is
/// neither "None" nor a whole number of 1 or more.
[[nodiscard]] std::optional<int> filterLength(std::string_view setting);

/// Smooths `values` in place; each stretch between gaps by itself. The first and last n / 2 values of a
/// stretch stay raw, and so does a stretch that is shorter than the window.
void Logprintexport_filterlogdata(std::span<float> values, std::string_view setting);

} // namespace tarvik
