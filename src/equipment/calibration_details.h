// One calibration taken apart for a screen: its polynomial, its points, and how well the one fits the other.
#pragma once

#include "base/calibration.h"

#include <string>
#include <vector>

namespace tarvik {

struct CalibrationPointRow {
    std::string reading;
    std::string reference;
    std::string value;      ///< what the polynomial makes of the reading
    std::string difference; ///< value less reference
};

struct CalibrationDetails {
    std::string fit;                       ///< "Linear fit, order 1"
    std::vector<std::string> coefficients; ///< lowest power first, each read back as the same number
    std::vector<CalibrationPointRow> points;
    std::string largestError; ///< one sentence; empty without points
    std::string warning;      ///< that the polynomial turns between the points, or is no numbers; else empty
};

[[nodiscard]] CalibrationDetails calibrationDetails(const Calibration& calibration);

/// The polynomial at `count` (2 or more) readings from the lowest to the highest point, and a little beyond;
/// empty with fewer than two readings apart from each other.
struct CalibrationCurve {
    std::vector<double> readings;
    std::vector<double> values;
};
[[nodiscard]] CalibrationCurve calibrationCurve(const Calibration& calibration, int count);

} // namespace tarvik
