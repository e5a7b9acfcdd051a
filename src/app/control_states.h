// Which menus and tool-bar buttons are enabled while the operator is free, and while a run owns the LCU.
#pragma once

#include "app/frame_view.h"

#include <string_view>
#include <vector>

namespace tarvik {

/// `argument` is "ENABLE" or "DISABLE"; nothing for any other text. In the order in which they take effect.
[[nodiscard]] std::vector<ControlState> controlStates(std::string_view argument, bool loggingAllowed);

} // namespace tarvik
