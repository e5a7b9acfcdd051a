// The header of a new run, from the set-up, the tool and the winch.
#pragma once

#include "base/civil_time.h"
#include "base/current_equipment.h"
#include "base/run_header.h"
#include "lcu/run_context.h"

namespace tarvik {

/// Speed, the measured channels and the derived ones that the tool's rule appends.
[[nodiscard]] RunHeader buildRunHeader(const RunOrder& order, const CurrentTool& tool,
                                       const CurrentWinch& winch, const CivilTime& now);

} // namespace tarvik
