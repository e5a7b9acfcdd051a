// The log of a run while it is being logged: follows the acquisition ring and tells which rows are new.
//
// The columns are twice as long as the ring, so that the latest points always lie in one piece and moving
// them to the front costs next to nothing.
#pragma once

#include "base/run_header.h"
#include "display/curve_trace.h"
#include "lcu/acquisition_ring.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tarvik {

class LiveLog {
  public:
    /// Clears it and takes the names, units and calibration states of the run's channels.
    void begin(const RunHeader& header);

    /// Takes the points that have come since the last call; how many there were.
    std::size_t follow(const AcquisitionRing& ring);

    /// Valid until the next call of begin() or follow(). Depths are metres.
    [[nodiscard]] LogData data() const;

    /// The stretch of the axis, in metres or seconds, that the points of the last follow() have changed, the
    /// line from the point before them included. Nothing when there were none.
    [[nodiscard]] std::optional<Band> changed(Axis axis) const;

    [[nodiscard]] std::size_t steps() const { return size_; }

  private:
    struct Channel {
        std::string name;
        std::string unit;
        bool calibrated = true;
        std::size_t number = 0; ///< of the scan's channels, from 1; 0: the speed between two points
        std::vector<float> values;
    };
    void take(const AcquisitionPoint& point);
    void makeRoom();
    [[nodiscard]] float speedAt(std::size_t at) const;

    DepthUnits units_ = DepthUnits::metres; ///< of the speed
    bool sampledByTime_ = false;
    double joinLimit_ = 0; ///< metres
    std::vector<Channel> channels_;
    std::vector<double> depth_;
    std::vector<double> time_;
    std::size_t start_ = 0; ///< of the points that are held
    std::size_t size_ = 0;
    std::size_t seen_ = 0; ///< points of the ring taken so far
    std::size_t fresh_ = 0;
};

/// By how many whole painter units the body has to move up (negative: down) so that `position` stands
/// within it, with room ahead for a fifth of the height; 0 while it does.
[[nodiscard]] double followShift(const DisplayView& view, double bodyHeight, double position, bool movingUp);

} // namespace tarvik
