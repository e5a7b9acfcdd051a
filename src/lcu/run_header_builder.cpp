#include "lcu/run_header_builder.h"

#include "app/version.h"
#include "lcu/tool_rules.h"

#include <algorithm>

namespace tarvik {

namespace {

/// A derived channel has the name of its rule, whatever the tool record says of that slot.
std::string channelName(const CurrentTool& tool, const ToolRule& rule, int channel) {
    if (const auto name = rule.derivedName(channel); !name.empty()) return std::string(name);
    std::string name = tool.record.get(tool::channelName(tool.mode, channel));
    if (name.empty()) name = "Channel " + std::to_string(channel); // as readers name it
    return name;
}

RunChannel describeChannel(const CurrentTool& tool, const ToolRule& rule, int channel) {
    const auto scale = [&](FloatField left, FloatField right) {
        return ScalePair{tool.record.get(left), tool.record.get(right)};
    };
    const int mode = tool.mode;
    return {.name = channelName(tool, rule, channel),
            .unit = tool.record.get(tool::channelUnit(mode, channel)),
            .uncalibrated =
                scale(tool::uncalibratedLeft(mode, channel), tool::uncalibratedRight(mode, channel)),
            .calibrated = scale(tool::calibratedLeft(mode, channel), tool::calibratedRight(mode, channel)),
            .calibration = tool.calibration(channel)};
}

} // namespace

RunHeader buildRunHeader(const RunOrder& order, const CurrentTool& tool, const CurrentWinch& winch,
                         const CivilTime& now) {
    RunHeader header;
    header.versionMajor = programVersion().major;
    header.versionMinor = programVersion().minor;
    header.runDate = formatDate(now, "dd-mmm-yyyy");
    header.startTime = formatDate(now, "hh:mm am/pm");
    header.project = order.project;
    header.hole = order.holeDetails;
    header.tool = {tool.record.get(tool::code), tool.record.get(tool::name),
                   tool.record.get(tool::serialNumber)};
    header.winch = {winch.record.get(winch::code), winch.record.get(winch::name),
                    winch.record.get(winch::serialNumber)};
    header.toolMode = tool.mode;
    header.toolModeName = tool.record.get(tool::modeName(tool.mode));
    header.setup = order.setup;

    const ToolRule rule = toolRule(header.tool.code);
    header.specialKind = rule.specialKind;
    header.channels.push_back(speedChannel(order.setup.units));
    const int recorded = std::min(tool.channels() + rule.derivedChannels, maxChannels);
    for (int channel = 1; channel <= recorded; ++channel) {
        header.channels.push_back(describeChannel(tool, rule, channel));
    }
    return header;
}

} // namespace tarvik
