// Setting the winch depth in the LCU. A wrong zero makes every depth of a run wrong, so the depth that the
// box reports back is compared with the one asked for.
#pragma once

#include "app/status_log.h"
#include "lcu/lcu_commands.h"

namespace tarvik {

/// True when the LCU reports the depth back. Both outcomes are in the status log.
bool setWinchDepth(LcuCommands& lcu, StatusLog& log, double metres);

} // namespace tarvik
