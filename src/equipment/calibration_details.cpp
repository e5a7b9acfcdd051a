#include "equipment/calibration_details.h"

#include "base/number_picture.h"
#include "equipment/calibration_fit.h"
#include "equipment/calibration_record.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

namespace tarvik {

namespace {

std::span<const std::pair<float, float>> pointsOf(const Calibration& calibration) {
    return std::span(calibration.points).first(static_cast<std::size_t>(calibration.pointCount));
}

float valueAt(const Calibration& calibration, float reading) {
    return evaluateCalibration(calibration.order, calibration.coefficients, reading);
}

/// What is worked out carries no more digits than can be read at a glance.
std::string inDigits(double value, int digits) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, digits).ptr;
    return {text.begin(), end};
}

std::vector<CalibrationPointRow> pointRows(const Calibration& calibration,
                                           std::span<const double> differences) {
    std::vector<CalibrationPointRow> rows;
    for (const auto& [reading, reference] : pointsOf(calibration)) {
        rows.push_back({shortestNumber(reading), shortestNumber(reference),
                        inDigits(static_cast<double>(valueAt(calibration, reading)), 7),
                        inDigits(differences[rows.size()], 4)});
    }
    return rows;
}

std::string largestErrorText(const Calibration& calibration, std::span<const double> differences) {
    if (differences.empty()) return {};
    const auto largest = std::ranges::max_element(differences, {}, [](double d) { return std::abs(d); });
    const auto& point = calibration.points[static_cast<std::size_t>(largest - differences.begin())];
    return "Largest error " + inDigits(std::abs(*largest), 4) + " at the reading " +
           shortestNumber(point.first) + ".";
}

} // namespace

CalibrationDetails calibrationDetails(const Calibration& calibration) {
    CalibrationDetails details;
    details.fit = calibration.fitName + ", order " + std::to_string(calibration.order);
    if (!canBeEvaluated(calibration)) {
        details.warning = "This record holds no polynomial and is not used. Calibrate the sensor again.";
        return details;
    }
    for (int term = 0; term <= calibration.order; ++term) {
        details.coefficients.push_back(
            shortestNumber(calibration.coefficients[static_cast<std::size_t>(term)]));
    }
    const std::vector<double> differences = residuals(calibration);
    details.points = pointRows(calibration, differences);
    details.largestError = largestErrorText(calibration, differences);
    if (const auto turn = turningPoint(calibration)) {
        details.warning = "The polynomial turns near the reading " + formatPicture(*turn, "##0.0##") +
                          ": two readings give one value there. A lower order may serve better.";
    }
    return details;
}

CalibrationCurve calibrationCurve(const Calibration& calibration, int count) {
    constexpr double beyond = 0.05; // of the extent, on either side
    CalibrationCurve curve;
    const auto points = pointsOf(calibration);
    if (points.size() < 2 || !canBeEvaluated(calibration)) return curve;
    const auto [lowest, highest] = std::ranges::minmax(points, {}, &std::pair<float, float>::first);
    const double extent = static_cast<double>(highest.first) - static_cast<double>(lowest.first);
    if (!(extent > 0)) return curve;
    const double low = static_cast<double>(lowest.first) - beyond * extent;
    const double step = extent * (1 + 2 * beyond) / (count - 1);
    for (int i = 0; i < count; ++i) {
        const double reading = low + i * step;
        curve.readings.push_back(reading);
        curve.values.push_back(static_cast<double>(valueAt(calibration, static_cast<float>(reading))));
    }
    return curve;
}

} // namespace tarvik
