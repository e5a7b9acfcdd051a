// A list of the user's tools or winches to choose one from; its first line chooses none.
#pragma once

#include "equipment/tool_winch_data.h"

#include <vector>

class QComboBox;

namespace tarvik {

/// Chosen is the first row with the code, and with the serial number where one is given.
void fillChoices(QComboBox& list, const std::vector<UserRow>& rows, const EquipmentChoice& chosen);
[[nodiscard]] EquipmentChoice choiceIn(const QComboBox& list);

} // namespace tarvik
