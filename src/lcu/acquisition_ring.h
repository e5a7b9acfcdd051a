// The latest kept scans for the live plots: 2,000 points, after which the write position runs round to the
// start.
#pragma once

#include "base/current_scan.h"

#include <array>
#include <cstddef>
#include <vector>

namespace tarvik {

struct AcquisitionPoint {
    float depth = 0;                             ///< metres
    double seconds = 0;                          ///< since the start of the stream; of an earlier run below 0
    std::array<float, maxChannels + 1> values{}; ///< calibrated, by channel number
};

class AcquisitionRing {
  public:
    static constexpr std::size_t capacity = 2000;

    AcquisitionRing() : points_(capacity) {}

    void clear() { kept_ = 0; }
    void add(const AcquisitionPoint& point) { points_[kept_++ % capacity] = point; }

    /// Points added since it was cleared, those written over included.
    [[nodiscard]] std::size_t kept() const { return kept_; }

    /// Points that hold data, and the i-th of them from the oldest.
    [[nodiscard]] std::size_t size() const { return kept_ < capacity ? kept_ : capacity; }
    [[nodiscard]] const AcquisitionPoint& fromOldest(std::size_t i) const {
        return points_[kept_ <= capacity ? i : (kept_ + i) % capacity];
    }

  private:
    std::vector<AcquisitionPoint> points_;
    std::size_t kept_ = 0;
};

} // namespace tarvik
