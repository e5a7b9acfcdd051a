#include "equipment/calibration_text.h"

#include "base/number_picture.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr std::string_view lineEnd = "\r\n";

constexpr std::array<std::pair<std::string_view, TextField>, 11> textColumns{{
    {"Tool code", calibration::toolCode},
    {"Tool name", calibration::toolName},
    {"Serial number", calibration::toolSerialNumber},
    {"Sensor", calibration::sensorName},
    {"State", calibration::state},
    {"Fit", calibration::fitName},
    {"Identifier", calibration::identifier},
    {"Date", calibration::date},
    {"Time", calibration::time},
    {"Calibrated by", calibration::calibratedBy},
    {"Kind", calibration::kind},
}};

/// A damaged text cannot begin a column or a line of its own.
std::string inOneColumn(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

std::string columnNames() {
    std::string line;
    for (const auto& [name, field] : textColumns) line.append(name).append("\t");
    line += "Order";
    for (int term = 1; term <= maxCoefficients; ++term) line += "\tC" + std::to_string(term);
    line += "\tPoints";
    for (int point = 1; point <= maxCalibrationPoints; ++point) {
        line += "\tX" + std::to_string(point) + "\tY" + std::to_string(point);
    }
    return line;
}

std::string columnsOf(const CalibrationRecord& record) {
    const Calibration one = calibrationOf(record);
    std::string line;
    for (const auto& [name, field] : textColumns) line.append(inOneColumn(record.get(field))).append("\t");
    line += std::to_string(one.order);
    for (int term = 0; term < maxCoefficients; ++term) {
        line += "\t";
        if (term <= one.order) line += shortestNumber(one.coefficients[static_cast<std::size_t>(term)]);
    }
    line += "\t" + std::to_string(one.pointCount);
    for (int point = 0; point < maxCalibrationPoints; ++point) {
        const auto& [reading, reference] = one.points[static_cast<std::size_t>(point)];
        const bool measured = point < one.pointCount;
        line += "\t" + (measured ? shortestNumber(reading) : "");
        line += "\t" + (measured ? shortestNumber(reference) : "");
    }
    return line;
}

} // namespace

std::string calibrationsText(std::span<const CalibrationRecord> records) {
    std::string text = columnNames();
    text += lineEnd;
    for (const CalibrationRecord& record : records) text.append(columnsOf(record)).append(lineEnd);
    return text;
}

} // namespace tarvik
