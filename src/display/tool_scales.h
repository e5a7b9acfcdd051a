// Scales belong to the tool: what is changed in a display during acquisition is kept in the record of the
// current tool and mode, for every later run.
#pragma once

#include "display/log_display.h"
#include "equipment/tool_winch_data.h"

namespace tarvik {

/// Stores the curve's scale as that of its channel, "CALIB" or "UNCAL" as its values are. False when the
/// current tool has no channel of that name in its mode.
bool keepToolScale(ToolWinchData& equipment, const LogCurve& curve);

} // namespace tarvik
