// The calibration of one sensor: a polynomial, lowest power first, with the texts that say where it comes
// from.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

namespace tarvik {

constexpr int maxCoefficients = 20;
constexpr int maxCalibrationPoints = 20;

struct Calibration {
    // Defaults of a sensor that was never calibrated: counts pass through unchanged, so that they are never
    // lost.
    std::string sensorName;
    std::string state = "None"; ///< "None" is shown as not calibrated wherever values are shown or exported
    std::string fitName = "Linear";
    std::string identifier = "001-001";
    std::string date = "01-Jan-2001";
    std::string time = "09:00:00";
    std::string calibratedBy = "Manufacturer";
    std::string kind = "Factory"; ///< "Factory" or "Field"
    std::string serialNumber;

    int order = 1; ///< 0: the channel reads 0 in engineering units
    std::array<double, maxCoefficients> coefficients{0, 1};
    int pointCount = 0;
    std::array<std::pair<float, float>, maxCalibrationPoints> points{};
};

/// False for a sensor whose values are counts.
[[nodiscard]] inline bool isCalibrated(const Calibration& calibration) {
    return calibration.order > 0 && calibration.state != "None";
}

/// c1 + c2·x + … + c(m+1)·x^m in double precision, powers by the general power function and added in
/// increasing order, stored as a single. An order of 0 gives 0. Orders above 19 are cut to the 20
/// coefficients that exist.
[[nodiscard]] inline float
evaluateCalibration(int order, const std::array<double, maxCoefficients>& coefficients, float reading) {
    if (order <= 0) return 0;
    const int terms = std::min(order + 1, maxCoefficients);
    double sum = 0;
    for (int k = 0; k < terms; ++k) {
        sum += std::pow(static_cast<double>(reading), k) * coefficients[static_cast<std::size_t>(k)];
    }
    return static_cast<float>(sum);
}

} // namespace tarvik
