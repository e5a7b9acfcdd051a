// What is asked at the start button, before anything is sent or written.
#pragma once

#include "app/link_state.h"
#include "app/operator_side.h"
#include "base/tool_record.h"
#include "base/winch_record.h"

#include <string_view>

namespace tarvik {

/// False: the run does not start, and the operator knows why.
[[nodiscard]] bool mayStartLogging(OperatorSide& operatorSide, const ToolRecord& tool,
                                   const WinchRecord& winch, const LinkState& link, std::string_view hole,
                                   bool recording);

} // namespace tarvik
