#include "equipment/calibration_record.h"

#include "base/rounding.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace tarvik {

namespace {

using NamedText = std::pair<TextField, std::string Calibration::*>;

constexpr std::array<NamedText, 8> texts{{
    {calibration::sensorName, &Calibration::sensorName},
    {calibration::state, &Calibration::state},
    {calibration::fitName, &Calibration::fitName},
    {calibration::identifier, &Calibration::identifier},
    {calibration::date, &Calibration::date},
    {calibration::time, &Calibration::time},
    {calibration::calibratedBy, &Calibration::calibratedBy},
    {calibration::kind, &Calibration::kind},
}};

/// In code page 1252, so that letters with accents have their capitals too.
std::string capitals(std::string_view utf8) {
    std::string ansi = toAnsi(upperCase(utf8));
    for (char& letter : ansi) {
        const auto code = static_cast<unsigned char>(letter);
        if (code >= 0xE0 && code <= 0xFE && code != 0xF7) letter = static_cast<char>(code - 0x20);
        if (code == 0x9A || code == 0x9C || code == 0x9E) letter = static_cast<char>(code - 0x10);
        if (code == 0xFF) letter = static_cast<char>(0x9F);
    }
    return ansi;
}

} // namespace

CalibrationRecord blankCalibrationRecord() {
    CalibrationRecord record;
    for (const TextField field : {TextField{0, 160}, TextField{322, 66}, calibration::reserved}) {
        record.set(field, "");
    }
    return record;
}

Calibration calibrationOf(const CalibrationRecord& record) {
    Calibration read;
    for (const auto& [field, text] : texts) read.*text = record.get(field);
    read.serialNumber = record.get(calibration::toolSerialNumber);
    read.order = record.get(calibration::order);
    for (std::size_t term = 0; term < read.coefficients.size(); ++term) {
        read.coefficients[term] = record.get(calibration::coefficient(term));
    }
    read.pointCount = std::clamp<int>(record.get(calibration::pointCount), 0, maxCalibrationPoints);
    for (std::size_t point = 0; point < read.points.size(); ++point) {
        read.points[point] = {record.get(calibration::reading(point)),
                              record.get(calibration::reference(point))};
    }
    return read;
}

bool canBeEvaluated(const Calibration& calibration) {
    if (calibration.order < 0 || calibration.order >= maxCoefficients) return false;
    const auto terms =
        std::span(calibration.coefficients).first(static_cast<std::size_t>(calibration.order) + 1);
    return std::ranges::all_of(terms, [](double coefficient) { return std::isfinite(coefficient); });
}

bool sameSensor(std::string_view a, std::string_view b) {
    return capitals(trimmed(a)) == capitals(trimmed(b));
}

CalibrationRecord calibrationRecord(const ToolRecord& tool, const Calibration& calibration) {
    CalibrationRecord record = blankCalibrationRecord();
    record.set(calibration::toolCode, tool.get(tool::code));
    record.set(calibration::toolName, tool.get(tool::name));
    record.set(calibration::toolSerialNumber, tool.get(tool::serialNumber));
    for (const auto& [field, text] : texts) record.set(field, calibration.*text);
    record.set(calibration::order, toInt16(calibration.order));
    for (std::size_t term = 0; term < calibration.coefficients.size(); ++term) {
        record.set(calibration::coefficient(term), calibration.coefficients[term]);
    }
    record.set(calibration::pointCount, toInt16(calibration.pointCount));
    for (std::size_t point = 0; point < calibration.points.size(); ++point) {
        record.set(calibration::reading(point), calibration.points[point].first);
        record.set(calibration::reference(point), calibration.points[point].second);
    }
    return record;
}

} // namespace tarvik
