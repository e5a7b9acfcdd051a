#include "processing/las_again.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

LasExportOptions lasOptionsFor(const ReviewLog& log) {
    LasExportOptions options;
    if (!log.las) return options;
    if (log.las->hasNull && parseNumber(log.las->nullText)) options.nullText = log.las->nullText;
    options.decimals = std::clamp(log.las->decimals, 2, 5);
    options.holeAzimuth = log.las->holeAzimuth;
    options.holeInclination = log.las->holeInclination;
    return options;
}

std::optional<LasInterval> lasHeaderInterval(const ReviewLog& log) {
    if (!log.las || log.truncated || log.depth.empty()) return std::nullopt;
    if (log.las->droppedRows > 0 || log.las->fragmentBytes > 0) return std::nullopt;
    const auto [smallest, largest] = std::ranges::minmax(log.depth);
    const auto [start, stop] = std::minmax(log.las->start, log.las->stop);
    const bool encloses = start <= smallest && stop >= largest; // false for a number that is not there
    if (!encloses) return std::nullopt;
    return LasInterval{start, stop};
}

double lasHeaderStep(const LasFacts& facts, const std::vector<double>& depth) {
    constexpr double rounding = 0.01;               // of both ends together
    const double headerStep = std::abs(facts.step); // no number where the header has none
    if (headerStep == 0) return 0;
    if (depth.size() < 2) return std::isfinite(headerStep) ? headerStep : 0;
    const auto intervals = static_cast<double>(depth.size() - 1);
    const double step = (depth.back() - depth.front()) / intervals;
    for (std::size_t i = 0; i < depth.size(); ++i) {
        const double even = depth.front() + static_cast<double>(i) * step;
        if (std::abs(depth[i] - even) > 1.2 * rounding) return 0;
    }
    return std::abs(step - headerStep) <= rounding / 2 + rounding / intervals ? headerStep
                                                                              : std::max(step, 0.0);
}

} // namespace tarvik
