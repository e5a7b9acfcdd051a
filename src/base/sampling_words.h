// How a run samples, in words.
#pragma once

#include "base/run_setup.h"

#include <string>

namespace tarvik {

/// "0.5 s", "5 cm", or with feet "5 cm (0.164 ft)": by depth the box counts centimetres of cable in either
/// depth unit.
[[nodiscard]] std::string intervalText(Sampling sampling, float interval, DepthUnits units);

} // namespace tarvik
