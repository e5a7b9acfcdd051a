// From points measured on a sensor to its calibration, and how good that is.
#pragma once

#include "base/calibration.h"
#include "equipment/polynomial_fit.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

constexpr int maxCalibrationOrder = 7; ///< the orders offered for a calibration are 1 to 7

/// "Linear fit", "2nd order polynomial" ...; empty outside the orders offered.
[[nodiscard]] std::string_view fitName(int order);

struct CalibrationFit {
    bool ok = false;
    std::string message; ///< why there is none; empty when an error was reported
    /// Polynomial, points and the name of the fit, in the state "Calibrated"; no sensor, date or kind yet.
    Calibration calibration;
};

/// Fails as the polynomial fit does, on an order that is not offered, and on more than 20 points.
[[nodiscard]] CalibrationFit fitCalibration(ErrorTrap& errors, int order, std::span<const FitPoint> points);

/// What the calibration makes of the reading of each of its points, less the reference value.
[[nodiscard]] std::vector<double> residuals(const Calibration& calibration);

/// A reading between the points where the polynomial does not go on as it began, upwards or downwards: two
/// readings give one value there. Nothing when there is none.
[[nodiscard]] std::optional<double> turningPoint(const Calibration& calibration);

/// The lower order that comes closest to the points, when it comes closer than this one does: a higher order
/// can only do better, unless its sums outgrew their precision. Nothing when this order is sound.
[[nodiscard]] std::optional<int> closerLowerOrder(ErrorTrap& errors, const Calibration& calibration);

} // namespace tarvik
