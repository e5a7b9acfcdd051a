// The questions at the start button, asked before anything is sent or written.
#pragma once

#include "app/operator_side.h"
#include "base/tool_record.h"

#include <string_view>

namespace tarvik {

/// False: the run does not start, and the operator knows why.
[[nodiscard]] bool mayStartLogging(OperatorSide& operatorSide, const ToolRecord& tool,
                                   std::string_view lcuModel, bool recording);

/// Why a hole's name cannot be part of a file name, and what to change; empty when it can.
[[nodiscard]] std::string holeNameProblem(std::string_view hole);

} // namespace tarvik
