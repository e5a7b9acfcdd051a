// How fast the cable moves: the change of depth from one decoded scan to the next over the scan's time.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

namespace tarvik {

class RunSpeed {
  public:
    /// Depth in metres, time in counts of 0.1 ms.
    void measure(double depth, std::int32_t scanTime) {
        constexpr double countsPerMinute = 10'000.0 * 60;
        const bool measurable = depth_.has_value() && scanTime != 0;
        metresPerMinute_ = measurable ? movedTo(depth) * countsPerMinute / scanTime : 0;
        depth_ = depth;
    }

    /// Without sign; 0 at the first scan and for a scan without time.
    [[nodiscard]] double metresPerMinute() const { return metresPerMinute_; }
    /// Of the scan measured last; 0 before any.
    [[nodiscard]] double depth() const { return depth_.value_or(0); }
    /// Metres from there, without sign; 0 before any scan.
    [[nodiscard]] double movedTo(double depth) const { return depth_ ? std::abs(depth - *depth_) : 0; }

  private:
    std::optional<double> depth_;
    double metresPerMinute_ = 0;
};

} // namespace tarvik
