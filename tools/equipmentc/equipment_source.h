// Turns the readable source of the maker's equipment (data/) into the records of the database and of the
// calibration history.
#pragma once

#include "equipment/calibration_history_file.h"
#include "equipment/equipment_file.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace equipmentc {

/// A record, and what is wrong with its source; use the record only when nothing is.
template <class Record>
struct Compiled {
    Record record;
    std::vector<std::string> problems;
};

[[nodiscard]] Compiled<tarvik::ToolRecord> compileTool(std::string_view text, std::string_view fileName);
[[nodiscard]] Compiled<tarvik::WinchRecord> compileWinch(std::string_view text, std::string_view fileName);
[[nodiscard]] Compiled<tarvik::EquipmentHeader> compileHeader(std::string_view text,
                                                              std::string_view fileName);

/// The factory calibrations of one tool of the maker's `tools`, fitted through their points. Identifiers go
/// on from the number of records `before` them.
[[nodiscard]] Compiled<std::vector<tarvik::CalibrationRecord>>
compileCalibrations(std::string_view text, std::string_view fileName,
                    std::span<const tarvik::ToolRecord> tools, std::size_t before);

/// database.ini, tools/*.tool and winches/*.winch of a folder, in the order of their file names.
[[nodiscard]] Compiled<tarvik::EquipmentFile> compileDatabase(const std::filesystem::path& folder);

/// calibrations/*.calibration of a folder, in the order of their file names.
[[nodiscard]] Compiled<tarvik::CalibrationFile> compileHistory(const std::filesystem::path& folder,
                                                               std::span<const tarvik::ToolRecord> tools);

} // namespace equipmentc
