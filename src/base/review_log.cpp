#include "base/review_log.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvik {

float noValue() {
    return std::numeric_limits<float>::quiet_NaN();
}
bool isNoValue(float value) {
    return std::isnan(value);
}

double joinLimit(std::span<const double> depth) {
    if (depth.size() < 3) return 0;
    // A thousand steps spread over the log tell the usual one as well as all of them.
    std::vector<double> steps;
    const std::size_t stride = std::max<std::size_t>(1, depth.size() / 1000);
    for (std::size_t i = 1; i < depth.size(); i += stride) steps.push_back(std::abs(depth[i] - depth[i - 1]));
    const auto quantile = [&](std::size_t quarters) {
        const auto at = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) * quarters / 4);
        std::nth_element(steps.begin(), at, steps.end());
        return *at;
    };
    // Of a log in two samplings the coarser one is no row of gaps.
    return std::max(quantile(2) * 10, quantile(3) * 3);
}

} // namespace tarvik
