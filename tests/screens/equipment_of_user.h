// The user's own tools and winches for tests of the screens.
#pragma once

#include "screens/desk.h"

namespace tarvik::test {

/// Adds the maker's tool with this code to the user's.
inline void ownTool(Program& program, const std::string& code, const std::string& serial) {
    const auto offered = program.equipment.ToolWinchData_loadbrennatoollist().rows;
    for (std::size_t i = 0; i < offered.size(); ++i) {
        if (offered[i].code == code)
            program.equipment.ToolWinchData_addusertool(static_cast<int>(i + 1), serial);
    }
}

} // namespace tarvik::test
