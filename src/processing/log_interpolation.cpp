#include "processing/log_interpolation.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace tarvik {

namespace {

constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

/// Indices of the loaded steps by increasing depth.
std::vector<std::size_t> inOrder(std::span<const double> loaded) {
    std::vector<std::size_t> order(loaded.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (!std::ranges::is_sorted(loaded)) {
        std::ranges::stable_sort(order, {}, [&](std::size_t index) { return loaded[index]; });
    }
    return order;
}

} // namespace

LogInterpolation::LogInterpolation(std::span<const double> loaded, const DepthSteps& steps, double limit) {
    const auto order = inOrder(loaded);
    places_.reserve(steps.count);
    std::size_t next = 0; // first loaded step that lies deeper
    for (std::size_t i = 0; i < steps.count; ++i) {
        const double depth = steps.at(i);
        while (next < order.size() && loaded[order[next]] <= depth + sameDepth) ++next;
        const std::size_t below = next == 0 ? nowhere : order[next - 1];
        const std::size_t above = next == order.size() ? nowhere : order[next];
        if (below != nowhere && depth - loaded[below] <= sameDepth) {
            places_.push_back({below, below, 0});
        } else if (below == nowhere || above == nowhere) {
            places_.push_back({nowhere, nowhere, 0});
        } else if (limit > 0 && loaded[above] - loaded[below] > limit) {
            places_.push_back({nowhere, nowhere, 0});
            if (notLogged_.empty() || notLogged_.back().from != loaded[below])
                notLogged_.push_back({loaded[below], loaded[above]});
        } else {
            places_.push_back({below, above, (depth - loaded[below]) / (loaded[above] - loaded[below])});
        }
    }
}

std::vector<float> LogInterpolation::Logprintexport_interplogdata(std::span<const float> values) const {
    std::vector<float> regular;
    regular.reserve(places_.size());
    for (const Place& place : places_) {
        if (place.below == nowhere) {
            regular.push_back(noValue());
            continue;
        }
        const double below = values[place.below];
        const double above = values[place.above];
        regular.push_back(static_cast<float>(below + (above - below) * place.share));
    }
    return regular;
}

} // namespace tarvik
