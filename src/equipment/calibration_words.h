// What a calibration is, in words for screens and lists.
#pragma once

#include "base/calibration.h"

#include <string>
#include <string_view>

namespace tarvik {

enum class CalibrationStatus {
    calibrated,
    none,   ///< never calibrated: counts pass through, or the order is 0 and the channel reads 0
    derived ///< the program computes the channel; nothing was calibrated
};

[[nodiscard]] CalibrationStatus statusOf(const Calibration& calibration);

/// "Linear fit, order 1, 13-Mar-2006 09:00:00 by A. Smith, Field" or, plainly, that there is none.
[[nodiscard]] std::string calibrationWords(const Calibration& calibration);

/// "2006-03-13" of "13-Mar-2006", so that lists sort by it; any other text stays as it is.
[[nodiscard]] std::string sortableDate(std::string_view date);

} // namespace tarvik
