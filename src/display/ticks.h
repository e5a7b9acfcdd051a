// The horizontal lines of a log and their numbers: at round depths or times, as close together as paper logs
// have them (3 mm or a little more), in three strengths.
#pragma once

#include "display/scheme.h"

#include <string>
#include <vector>

namespace tarvik {

enum class TickStrength { fine, medium, heavy };

struct Tick {
    double position = 0; ///< in the unit that the ticks were asked for
    TickStrength strength = TickStrength::fine;
};

struct TickSpacing {
    double fine = 1;
    double medium = 5; ///< numbered
    double heavy = 10;
};

/// `perMillimetre`: depth units (or seconds) that a millimetre stands for.
[[nodiscard]] TickSpacing depthTickSpacing(double perMillimetre);
[[nodiscard]] TickSpacing timeTickSpacing(double secondsPerMillimetre);

/// Those within [from, to].
[[nodiscard]] std::vector<Tick> ticksBetween(double from, double to, const TickSpacing& spacing);

/// As many decimals as the spacing of the numbered lines needs.
[[nodiscard]] std::string depthTickText(double position, const TickSpacing& spacing);
/// "4:30", "1:02:00"; "0:01.5" where the numbered lines are less than a second apart.
[[nodiscard]] std::string timeTickText(double seconds, const TickSpacing& spacing);

} // namespace tarvik
