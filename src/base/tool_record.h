// One downhole tool as the equipment files hold it: exactly 4000 bytes.
//
// Arrays over mode (1 or 2) and channel (1 to 20) hold 40 entries, mode varying fastest. Fields that only
// travel with the record have no name here; they are carried along unchanged.
#pragma once

#include "base/fixed_record.h"
#include "base/limits.h"

#include <algorithm>

namespace tarvik {

using ToolRecord = FixedRecord<4000>;

namespace tool {

/// Index of a (mode, channel) entry from 0.
constexpr std::size_t entry(int mode, int channel) {
    return static_cast<std::size_t>((mode - 1) + (channel - 1) * 2);
}

constexpr TextField shortCode{0, 4};
constexpr TextField code{4, 8};
constexpr TextField name{12, 40};
/// "PULSE", "MUX" or blank: how the tool's signal comes up the cable.
constexpr TextField kind(int mode) {
    return {52 + static_cast<std::size_t>(mode - 1) * 10, 10};
}
constexpr TextField serialNumber{72, 20};
constexpr TextField modeText(int mode) {
    return {92 + static_cast<std::size_t>(mode - 1) * 12, 12};
}
/// In the maker's file: the user has this tool. -1 true, 0 false.
constexpr Int16Field selected{122};
constexpr Int16Field channelCount(int mode) {
    return {138 + static_cast<std::size_t>(mode - 1) * 2};
}
constexpr TextField channelName(int mode, int channel) {
    return {142 + entry(mode, channel) * 20, 20};
}
constexpr TextField channelUnit(int mode, int channel) {
    return {942 + entry(mode, channel) * 16, 16};
}
constexpr TextField modeName(int mode) {
    return {1742 + static_cast<std::size_t>(mode - 1) * 30, 30};
}
constexpr FloatField uncalibratedLeft(int mode, int channel) {
    return {2522 + entry(mode, channel) * 4};
}
constexpr FloatField uncalibratedRight(int mode, int channel) {
    return {2682 + entry(mode, channel) * 4};
}
constexpr FloatField calibratedLeft(int mode, int channel) {
    return {2842 + entry(mode, channel) * 4};
}
constexpr FloatField calibratedRight(int mode, int channel) {
    return {3002 + entry(mode, channel) * 4};
}
constexpr TextField sensorFactors(int mode) {
    return {3162 + static_cast<std::size_t>(mode - 1) * 20, 20};
}
/// Seven pairs of command texts, one of each pair per mode. The first pair is the pulse threshold.
constexpr TextField parameter(int pair, int mode) {
    return {3202 + static_cast<std::size_t>(pair - 1) * 20 + static_cast<std::size_t>(mode - 1) * 10, 10};
}
constexpr int parameterPairs = 7;
/// Factory maximum of the tool current in mA; 0 means no limit.
constexpr Int16Field maximumCurrent{3622};
constexpr TextField reserved{3966, 34};

static_assert(endOf(name) == kind(1).offset && endOf(kind(2)) == serialNumber.offset);
static_assert(endOf(serialNumber) == modeText(1).offset && endOf(modeText(2)) == 116);
static_assert(endOf(channelCount(2)) == channelName(1, 1).offset);
static_assert(endOf(channelName(2, 20)) == channelUnit(1, 1).offset && endOf(channelUnit(2, 20)) == 1582);
static_assert(endOf(modeName(2)) == 1802 && endOf(uncalibratedLeft(2, 20)) == uncalibratedRight(1, 1).offset);
static_assert(endOf(calibratedRight(2, 20)) == sensorFactors(1).offset);
static_assert(endOf(sensorFactors(2)) == parameter(1, 1).offset && endOf(parameter(7, 2)) == 3342);
static_assert(endOf(reserved) == ToolRecord::size);

/// Channels of a mode, clamped to 0 … 20 whatever the file says.
[[nodiscard]] inline int channels(const ToolRecord& record, int mode) {
    return std::clamp<int>(record.get(channelCount(mode)), 0, maxChannels);
}

} // namespace tool

/// A record whose texts are blank and whose numbers are zero: no tool chosen.
[[nodiscard]] ToolRecord blankTool();

} // namespace tarvik
