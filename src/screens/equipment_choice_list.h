// A list of the user's tools or winches to choose one from; its first line chooses none.
#pragma once

#include "equipment/tool_winch_data.h"
#include "screens/desktop_memory.h"

#include <vector>

class QComboBox;

namespace tarvik {

/// Chosen is the first row with the code, and with the serial number where one is given.
void fillChoices(QComboBox& list, const std::vector<UserRow>& rows, const EquipmentChoice& chosen);
[[nodiscard]] EquipmentChoice choiceIn(const QComboBox& list);

/// The mode, 1 or 2, in which the tool was last chosen for a run; 1 before the first.
[[nodiscard]] int modeOf(const DesktopMemory& memory, const EquipmentChoice& tool);
void keepMode(DesktopMemory& memory, const EquipmentChoice& tool, int mode);

} // namespace tarvik
