// How each channel of a tool counts, from the sensor-factor text of its record: one item per channel,
// separated by commas, for example "a1,b1,f21,p1".
//
//   first letter   kind                     factor
//   A to E         1 count rate             1
//   F to J         2 period                 the number behind the letter (f21: 21)
//   P to S         3 signed 12-bit level    1
//   any other      4 plain level            stays as it was
//   pr…            1 count rate             1
//   the text pr8   5 plain level, all       1
//
// Items are taken as they stand: a blank before the letter, an empty or a missing item is "any other".
#pragma once

#include "base/current_equipment.h"

#include <array>
#include <string_view>

namespace tarvik {

/// Index 1 to 20; index 0 is not used.
using SensorFactors = std::array<SensorFactor, maxChannels + 1>;

/// Works out channels 1 to `channels` (at most 20) of a tool from the trimmed text of its mode. `factors`
/// holds what the channels had before, as a plain level keeps its factor; channels above `channels` become
/// kind 0. Throws Failure(overflow) when a period constant does not fit a single.
void applySensorFactors(std::string_view toolCode, std::string_view text, int channels,
                        SensorFactors& factors);

} // namespace tarvik
