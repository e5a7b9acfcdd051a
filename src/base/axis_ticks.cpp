#include "base/axis_ticks.h"

#include "base/number_picture.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// The smallest of 1, 2, 5, 10, 20 ... times a power of ten that is not less.
double roundStep(double least) {
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1 - 1e-9)) return factor * power;
    }
    return 10 * power;
}

} // namespace

AxisTicks axisTicks(double low, double high, int most) {
    AxisTicks ticks;
    if (!std::isfinite(low) || !std::isfinite(high) || !std::isfinite(high - low) || low >= high)
        return ticks;
    const double step = roundStep((high - low) / (most - 1));
    constexpr double mostDecimals = 9;
    const double decimals = std::clamp(-std::floor(std::log10(step) + 1e-9), 0.0, mostDecimals);
    const std::string picture =
        decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
    const double first = std::ceil(low / step - 1e-9);
    const double last = std::floor(high / step + 1e-9);
    for (double i = first; i <= last; ++i) {
        ticks.at.push_back(i * step);
        ticks.labels.push_back(formatPicture(i * step, picture));
    }
    return ticks;
}

} // namespace tarvik
