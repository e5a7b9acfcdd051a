#include "equipment/calibration_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, maxCalibrationOrder> fitNames{
    "Linear fit",           "2nd order polynomial", "3rd order polynomial", "4th order polynomial",
    "5th order polynomial", "6th order polynomial", "7th order polynomial"};

double valueAt(const Calibration& calibration, double reading) {
    double value = 0;
    for (int term = calibration.order; term >= 0; --term) {
        value = value * reading + calibration.coefficients[static_cast<std::size_t>(term)];
    }
    return value;
}

std::span<const std::pair<float, float>> pointsOf(const Calibration& calibration) {
    return std::span(calibration.points).first(static_cast<std::size_t>(calibration.pointCount));
}

/// Root mean square of the residuals.
double misfit(const Calibration& calibration) {
    const std::vector<double> differences = residuals(calibration);
    double sum = 0;
    for (const double difference : differences) sum += difference * difference;
    return std::sqrt(sum / static_cast<double>(std::max<std::size_t>(differences.size(), 1)));
}

} // namespace

std::string_view fitName(int order) {
    if (order < 1 || order > maxCalibrationOrder) return {};
    return fitNames[static_cast<std::size_t>(order - 1)];
}

CalibrationFit fitCalibration(ErrorTrap& errors, int order, std::span<const FitPoint> points) {
    CalibrationFit result;
    if (fitName(order).empty()) {
        result.message = "The order of a calibration is 1 to 7, not " + std::to_string(order);
        return result;
    }
    if (points.size() > maxCalibrationPoints) {
        result.message = "A calibration has room for 20 points, not " + std::to_string(points.size());
        return result;
    }
    const PolynomialFit fit = PolyCalibration_getpolycoefficients(errors, order, points);
    result.ok = fit.ok;
    result.message = fit.message;
    if (!fit.ok) return result;
    Calibration& made = result.calibration;
    made.state = "Calibrated";
    made.fitName = fitName(order);
    made.order = order;
    made.coefficients = {};
    std::copy_n(fit.coefficients.begin(), order + 1, made.coefficients.begin());
    made.pointCount = static_cast<int>(points.size());
    std::ranges::transform(points, made.points.begin(), [](const FitPoint& point) {
        return std::pair(static_cast<float>(point.x), static_cast<float>(point.y));
    });
    return result;
}

std::vector<double> residuals(const Calibration& calibration) {
    std::vector<double> differences;
    for (const auto& [reading, reference] : pointsOf(calibration)) {
        const float value = evaluateCalibration(calibration.order, calibration.coefficients, reading);
        differences.push_back(static_cast<double>(value) - static_cast<double>(reference));
    }
    return differences;
}

std::optional<int> closerLowerOrder(ErrorTrap& errors, const Calibration& calibration) {
    constexpr double negligible = 1e-4; // of the range of the references
    std::vector<FitPoint> points;
    double low = std::numeric_limits<double>::max(), high = std::numeric_limits<double>::lowest();
    for (const auto& [reading, reference] : pointsOf(calibration)) {
        points.push_back({double{reading}, double{reference}});
        low = std::min(low, double{reference});
        high = std::max(high, double{reference});
    }
    double least = misfit(calibration) - negligible * (high - low);
    std::optional<int> closer;
    for (int order = calibration.order - 1; order >= 1; --order) {
        const CalibrationFit lower = fitCalibration(errors, order, points);
        if (!lower.ok || !(misfit(lower.calibration) < least)) continue;
        least = misfit(lower.calibration);
        closer = order;
    }
    return closer;
}

std::optional<double> turningPoint(const Calibration& calibration) {
    constexpr int steps = 1000;
    const auto points = pointsOf(calibration);
    if (points.empty()) return std::nullopt;
    const auto [first, last] = std::ranges::minmax(points, {}, [](const auto& point) { return point.first; });
    const double low = static_cast<double>(first.first);
    const double step = (static_cast<double>(last.first) - low) / steps;
    const bool rising = valueAt(calibration, low + step) > valueAt(calibration, low);
    for (int i = 0; i < steps; ++i) {
        const double rise = valueAt(calibration, low + (i + 1) * step) - valueAt(calibration, low + i * step);
        if (rising ? !(rise > 0) : !(rise < 0)) return low + i * step;
    }
    return std::nullopt;
}

} // namespace tarvik
