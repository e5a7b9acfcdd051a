// The channels of a tool in its mode, each with the state of its calibration, for whoever is about to log.
#pragma once

#include "base/current_equipment.h"

#include <span>
#include <string>
#include <vector>

namespace tarvik {

struct ChannelState {
    int channel = 0; ///< 1 to 20
    std::string name;
    std::string unit;
    std::string calibration;     ///< in words
    bool needsAttention = false; ///< measured, but not calibrated
};

/// The measured channels of the current mode.
[[nodiscard]] std::vector<ChannelState> channelStates(const CurrentTool& tool);

[[nodiscard]] bool calibrationIsComplete(std::span<const ChannelState> channels);
/// One sentence: all calibrated, or which are not.
[[nodiscard]] std::string calibrationVerdict(std::span<const ChannelState> channels);

/// "1  Gamma only (2 channels)", "2  (none)".
[[nodiscard]] std::string toolModeText(const ToolRecord& record, int mode);

/// The unit of a sensor in the tool's record, whichever mode names it; empty when none does.
[[nodiscard]] std::string sensorUnit(const ToolRecord& record, std::string_view sensor);

} // namespace tarvik
