// Smallest and greatest value of any stretch of a channel, found without touching every value of it.
// Gaps do not count. Built once per channel; a display of 80,000 steps asks it for each row of pixels.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace tarvik {

struct ValueRange {
    float least = std::numeric_limits<float>::infinity();
    float most = -std::numeric_limits<float>::infinity();

    [[nodiscard]] bool empty() const { return least > most; }
    /// A gap changes nothing: no comparison with it is true.
    void add(float value) {
        if (value < least) least = value;
        if (value > most) most = value;
    }
    void add(const ValueRange& other) {
        if (other.least < least) least = other.least;
        if (other.most > most) most = other.most;
    }
};

[[nodiscard]] ValueRange rangeOf(std::span<const float> values);

class MinMaxPyramid {
  public:
    explicit MinMaxPyramid(std::span<const float> values);

    /// Of values[first] … values[last - 1]; `values` are those it was built of.
    [[nodiscard]] ValueRange range(std::span<const float> values, std::size_t first, std::size_t last) const;

  private:
    static constexpr std::size_t fan = 8;
    std::vector<std::vector<ValueRange>> levels_; ///< eight values, 64, 512 …
};

} // namespace tarvik
