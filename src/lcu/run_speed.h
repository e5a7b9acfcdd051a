// How fast the cable moves: the change of depth from one decoded scan to the next over the scan's time. Where
// scans are missing between the two that time is not the one of the change, and there is no speed.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace tarvik {

class RunSpeed {
  public:
    /// `mostMoved`: metres, more than the cable runs between two scans of an unbroken stream.
    explicit RunSpeed(double mostMoved = std::numeric_limits<double>::infinity()) : mostMoved_(mostMoved) {}

    /// Scans may be missing before the next one.
    void interrupt() { interrupted_ = true; }

    /// Depth in metres, time in counts of 0.1 ms.
    void measure(double depth, std::int32_t scanTime) {
        constexpr double countsPerMinute = 10'000.0 * 60;
        const bool broken = std::exchange(interrupted_, false) || movedTo(depth) > mostMoved_;
        const bool measurable = depth_.has_value() && scanTime != 0 && !broken;
        metresPerMinute_ = measurable ? movedTo(depth) * countsPerMinute / scanTime : 0;
        depth_ = depth;
    }

    /// Without sign; 0 at the first scan, for a scan without time and where scans are missing.
    [[nodiscard]] double metresPerMinute() const { return metresPerMinute_; }
    /// Of the scan measured last; 0 before any.
    [[nodiscard]] double depth() const { return depth_.value_or(0); }
    /// Metres from there, without sign; 0 before any scan.
    [[nodiscard]] double movedTo(double depth) const { return depth_ ? std::abs(depth - *depth_) : 0; }

  private:
    double mostMoved_;
    bool interrupted_ = false;
    std::optional<double> depth_;
    double metresPerMinute_ = 0;
};

} // namespace tarvik
