// The settings of one logging run: fixed when the run starts, read by the decoder, the run and the run file.
#pragma once

#include "base/depth_units.h"

#include <cstdint>
#include <string>

namespace tarvik {

enum class Sampling { time, depth };
enum class Direction { down, up };

[[nodiscard]] constexpr std::string_view samplingText(Sampling sampling) {
    return sampling == Sampling::depth ? "DEPTH" : "TIME";
}
[[nodiscard]] constexpr std::string_view directionText(Direction direction) {
    return direction == Direction::up ? "UP" : "DOWN";
}
/// 0 for down, -1 for up: the form in which settings, files and comparisons hold the direction.
[[nodiscard]] constexpr std::int16_t directionFlag(Direction direction) {
    return direction == Direction::up ? -1 : 0;
}

struct RunSetup {
    Sampling sampling = Sampling::time;
    float interval = 0.5F; ///< seconds by time; centimetres of cable by depth, in either depth unit
    Direction direction = Direction::down;
    DepthUnits units = DepthUnits::metres;

    double winchDepthFactor = 1.0; ///< winch scale factor × model factor (1.0 LCU2Plus, 0.25 LCU4)
    double depthScaleFactor = 1.0; ///< stays 1.0: depths in memory are metres
    float offset1 = 0;             ///< centimetres; enters comparisons, never the stored depth
    float offset2 = 0;

    bool limitsOverride = true; ///< no limits given: every depth is in range and the end is never reached
    double topDepth = 0;        ///< metres
    double bottomDepth = 0;     ///< metres
    double endDistance = 0;     ///< metres left at which the end counts as reached

    float declination = 0; ///< degrees, for the deviation tool
    std::int32_t magneticMarker = 0;
};

} // namespace tarvik
