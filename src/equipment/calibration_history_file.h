// The calibration history file, "Brenna-Calibrations.dat": a header of 128 bytes and records of 600 bytes,
// nothing between. It has no count; its length says how many records there are. It only ever grows.
//
// A kill in the middle of a save leaves a torn last record. The count rounds it up or away (halves to even),
// as the summary and the place of the next record always have; only whole records are read.
#pragma once

#include "equipment/calibration_record.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

using CalibrationHeader = FixedRecord<128>;

namespace calibration_history {

constexpr TextField version{0, 10};
constexpr TextField date{10, 20};
constexpr TextField reserved{30, 98};

static_assert(endOf(version) == date.offset && endOf(date) == reserved.offset);
static_assert(endOf(reserved) == CalibrationHeader::size);

} // namespace calibration_history

struct CalibrationFile {
    CalibrationHeader header;
    std::vector<CalibrationRecord> records; ///< the whole ones
    std::size_t count = 0;                  ///< as the length says, rounded
    std::size_t tornBytes = 0;              ///< of a last record that is not whole
    bool headerTorn = false;                ///< shorter than its header
};

/// What a new file begins with.
[[nodiscard]] CalibrationHeader newCalibrationHeader();

/// Where a record starts; `index` counts from 0.
[[nodiscard]] std::uint64_t calibrationOffset(std::size_t index);

[[nodiscard]] CalibrationFile readCalibrations(std::span<const std::uint8_t> bytes);

/// Header and whole records.
[[nodiscard]] std::vector<std::uint8_t> calibrationBytes(const CalibrationFile& file);

/// "File Version : 201  date 31-Aug-2002  (no records)"
[[nodiscard]] std::string summaryLine(const CalibrationFile& file);

/// Which records are meant; what is not set admits every record but a blank one, which stands where a torn
/// one stood. Code and serial number match exactly, the sensor name in whatever case, all without blanks
/// around them.
struct CalibrationFilter {
    std::optional<std::string> toolCode;
    std::optional<std::string> serialNumber;
    std::optional<std::string> sensorName;

    [[nodiscard]] bool admits(const CalibrationRecord& record) const;
};

} // namespace tarvik
