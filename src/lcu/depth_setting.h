// Setting the winch depth in the LCU. A wrong zero makes every depth of a run wrong, so the depth that the
// box reports back is compared with the one asked for.
#pragma once

#include "app/status_log.h"
#include "lcu/lcu_commands.h"

#include <string>

namespace tarvik {

enum class DepthSetting {
    done,       ///< the LCU has reported the depth back
    outOfReach, ///< beyond the depth counter; nothing was sent
    otherDepth, ///< it has reported another depth, or scans came instead: the winch was running
    noAnswer,   ///< nothing came: the line, or the box
};

/// Every outcome is in the status log. `metres` is what a scan is to read: the counter of the LCU times the
/// winch scale factor.
DepthSetting setWinchDepth(LcuCommands& lcu, StatusLog& log, double metres, double winchScaleFactor = 1.0);

/// What the operator is to do about it, in whole sentences; empty when it is done.
[[nodiscard]] std::string depthSettingRemedy(DepthSetting outcome);

} // namespace tarvik
