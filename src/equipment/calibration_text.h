// The calibration history as text for a spreadsheet: a line of column names, then a line for each record,
// tabs between the columns. docs/formats/calibrations.md names the columns.
#pragma once

#include "equipment/calibration_record.h"

#include <span>
#include <string>

namespace tarvik {

/// UTF-8, lines ended by CR LF. Every line has the same number of columns.
[[nodiscard]] std::string calibrationsText(std::span<const CalibrationRecord> records);

} // namespace tarvik
