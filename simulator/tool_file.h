// Reads the readable source of a tool (data/tools/*.tool) into a profile. Keys it does not know are skipped:
// the files carry more than the box needs.
#pragma once

#include "simulator/tool_profile.h"

#include <filesystem>
#include <istream>
#include <optional>
#include <string>

namespace lcusim {

struct ToolFile {
    std::optional<ToolProfile> tool;
    std::string problem; ///< file, line and remedy when there is no tool
};

[[nodiscard]] ToolFile readTool(std::istream& text, const std::string& fileName);

/// The tool with this code among the *.tool files of a folder.
[[nodiscard]] ToolFile findTool(const std::filesystem::path& folder, std::string_view code);

} // namespace lcusim
