#include "equipment/channel_states.h"

#include "equipment/calibration_record.h"
#include "equipment/calibration_words.h"

#include <algorithm>

namespace tarvik {

std::vector<ChannelState> channelStates(const CurrentTool& tool) {
    std::vector<ChannelState> states;
    for (int channel = 1; channel <= tool.channels(); ++channel) {
        const Calibration& calibration = tool.calibration(channel);
        states.push_back({.channel = channel,
                          .name = tool.record.get(tool::channelName(tool.mode, channel)),
                          .unit = tool.record.get(tool::channelUnit(tool.mode, channel)),
                          .calibration = calibrationWords(calibration),
                          .needsAttention = statusOf(calibration) == CalibrationStatus::none});
    }
    return states;
}

bool calibrationIsComplete(std::span<const ChannelState> channels) {
    return !channels.empty() && std::ranges::none_of(channels, &ChannelState::needsAttention);
}

std::string calibrationVerdict(std::span<const ChannelState> channels) {
    if (channels.empty()) return "No channels: choose a tool.";
    const auto open = std::ranges::count_if(channels, &ChannelState::needsAttention);
    if (open == 0) return "All channels are calibrated.";
    if (static_cast<std::size_t>(open) == channels.size())
        return "Not calibrated: all channels are logged as counts.";
    return "Not calibrated, logged as counts: " + std::to_string(open) + " of " +
           std::to_string(channels.size()) + " channels.";
}

std::string toolModeText(const ToolRecord& record, int mode) {
    const int channels = tool::channels(record, mode);
    const std::string number = std::to_string(mode) + "  ";
    if (channels == 0) return number + "(none)";
    const std::string name = record.get(tool::modeName(mode));
    return number + (name.empty() ? "" : name + " ") + "(" + std::to_string(channels) +
           (channels == 1 ? " channel)" : " channels)");
}

std::string sensorUnit(const ToolRecord& record, std::string_view sensor) {
    for (const int mode : {1, 2}) {
        for (int channel = 1; channel <= tool::channels(record, mode); ++channel) {
            if (sameSensor(record.get(tool::channelName(mode, channel)), sensor))
                return record.get(tool::channelUnit(mode, channel));
        }
    }
    return {};
}

} // namespace tarvik
