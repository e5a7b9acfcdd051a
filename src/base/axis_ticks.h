// Where the numbers of an axis stand.
#pragma once

#include <string>
#include <vector>

namespace tarvik {

struct AxisTicks {
    std::vector<double> at;          ///< rising, multiples of the step, all within the range
    std::vector<std::string> labels; ///< one for each, all with the same number of decimals
};

/// Ticks 1, 2 or 5 times a power of ten apart, at most `most` (2 or more) of them. A range without extent or
/// with an end that is no number has none.
[[nodiscard]] AxisTicks axisTicks(double low, double high, int most);

} // namespace tarvik
