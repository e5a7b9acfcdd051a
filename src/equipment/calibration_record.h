// One stored calibration of one sensor as the history file holds it: exactly 600 bytes.
#pragma once

#include "base/calibration.h"
#include "base/fixed_record.h"
#include "base/tool_record.h"

namespace tarvik {

using CalibrationRecord = FixedRecord<600>;

namespace calibration {

constexpr TextField toolCode{0, 8};
constexpr TextField toolName{8, 40};
constexpr TextField toolSerialNumber{48, 20};
constexpr TextField sensorName{68, 20};
constexpr TextField state{88, 10};
constexpr TextField fitName{98, 20};
constexpr TextField identifier{118, 20};
constexpr TextField date{138, 12};
constexpr TextField time{150, 10};
constexpr Int16Field order{160};
/// `term` from 0, lowest power first.
constexpr DoubleField coefficient(std::size_t term) {
    return {162 + term * 8};
}
constexpr TextField unused{322, 16};
constexpr TextField calibratedBy{338, 20};
constexpr TextField kind{358, 30};
constexpr Int16Field pointCount{388};
/// Reading and reference value of a point, `point` from 0.
constexpr FloatField reading(std::size_t point) {
    return {390 + point * 8};
}
constexpr FloatField reference(std::size_t point) {
    return {394 + point * 8};
}
/// Shown bold in the history list. -1 true, 0 false.
constexpr Int16Field marked{556};
constexpr TextField reserved{558, 42};

static_assert(endOf(toolSerialNumber) == sensorName.offset && endOf(sensorName) == state.offset);
static_assert(endOf(fitName) == identifier.offset && endOf(identifier) == date.offset);
static_assert(endOf(time) == order.offset && endOf(order) == coefficient(0).offset);
static_assert(endOf(coefficient(maxCoefficients - 1)) == unused.offset);
static_assert(endOf(unused) == calibratedBy.offset && endOf(kind) == pointCount.offset);
static_assert(endOf(pointCount) == reading(0).offset);
static_assert(endOf(reference(maxCalibrationPoints - 1)) <= marked.offset);
static_assert(endOf(marked) == reserved.offset && endOf(reserved) == CalibrationRecord::size);

} // namespace calibration

/// Blank texts, zero numbers: also what a torn record is overwritten with.
[[nodiscard]] CalibrationRecord blankCalibrationRecord();

/// The number of points is held to the twenty there is room for.
[[nodiscard]] Calibration calibrationOf(const CalibrationRecord& record);

/// False when no value comes of it: an order outside 0 to 19, or coefficients that are no numbers.
[[nodiscard]] bool canBeEvaluated(const Calibration& calibration);

/// Sensor names are the same in whatever case and with whatever blanks around them.
[[nodiscard]] bool sameSensor(std::string_view a, std::string_view b);

/// With code, name and serial number of the tool.
[[nodiscard]] CalibrationRecord calibrationRecord(const ToolRecord& tool, const Calibration& calibration);

} // namespace tarvik
