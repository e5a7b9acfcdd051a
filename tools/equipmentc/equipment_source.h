// Turns the readable source of the maker's equipment (data/) into the records of the database.
#pragma once

#include "equipment/equipment_file.h"

#include <filesystem>
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

/// database.ini, tools/*.tool and winches/*.winch of a folder, in the order of their file names.
[[nodiscard]] Compiled<tarvik::EquipmentFile> compileDatabase(const std::filesystem::path& folder);

} // namespace equipmentc
