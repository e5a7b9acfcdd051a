#include "display/minmax_pyramid.h"

#include <algorithm>

namespace tarvik {

ValueRange rangeOf(std::span<const float> values) {
    ValueRange range;
    for (const float value : values) range.add(value);
    return range;
}

MinMaxPyramid::MinMaxPyramid(std::span<const float> values) {
    std::vector<ValueRange> level((values.size() + fan - 1) / fan);
    for (std::size_t i = 0; i < level.size(); ++i) {
        level[i] = rangeOf(values.subspan(i * fan, std::min(fan, values.size() - i * fan)));
    }
    while (level.size() > fan) {
        std::vector<ValueRange> above((level.size() + fan - 1) / fan);
        for (std::size_t i = 0; i < level.size(); ++i) above[i / fan].add(level[i]);
        levels_.push_back(std::move(level));
        level = std::move(above);
    }
    levels_.push_back(std::move(level));
}

ValueRange MinMaxPyramid::range(std::span<const float> values, std::size_t first, std::size_t last) const {
    ValueRange range;
    // Ragged ends at each level, then the whole blocks between them one level up.
    while (first < last && first % fan != 0) range.add(values[first++]);
    while (first < last && last % fan != 0) range.add(values[--last]);
    first /= fan;
    last /= fan;
    for (std::size_t depth = 0; first < last; ++depth) {
        const auto& level = levels_[depth];
        const bool top = depth + 1 == levels_.size();
        while (first < last && (top || first % fan != 0)) range.add(level[first++]);
        while (first < last && last % fan != 0) range.add(level[--last]);
        first /= fan;
        last /= fan;
    }
    return range;
}

} // namespace tarvik
