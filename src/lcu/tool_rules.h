// The tools whose scans need more than the conversion types of their channels: signed words, and channels
// derived from the measured ones and appended behind them.
#pragma once

#include "base/limits.h"

#include <array>
#include <string_view>

namespace tarvik {

struct ToolRule {
    std::string_view code;
    /// First channel whose words are signed, for the value decoder.
    int signedFrom = maxChannels + 1;
    /// By how much the channel count exceeds the channels that the scan carries.
    int derivedChannels = 0;
    /// First channel that is computed instead of measured; 0: the one behind those that the scan carries.
    int firstDerived = 0;
    /// Derived channels read 0 up to this one, also beyond the channel count.
    int zeroUpTo = 0;
    /// The derived channel that always reads `constant`; 0: none.
    int constantChannel = 0;
    float constant = 0;
    /// The deviation of the hole is computed into the derived channels.
    bool deviation = false;
    /// Signed words for the raw decoder, all channels. Its list of tools is another one, on purpose.
    bool rawSigned = false;
};

// The fluid tools' temperatures need no rule: a channel in "Deg F" is calibrated in degrees Fahrenheit.
inline constexpr std::array<ToolRule, 7> toolRules{{
    {.code = "K417",
     .signedFrom = 1,
     .derivedChannels = 4,
     .firstDerived = 7, // the scan carries eight words; the last two are not measurements
     .deviation = true,
     .rawSigned = true},
    {.code = "K522", .derivedChannels = 1, .zeroUpTo = 9, .rawSigned = true},
    {.code = "K240", .derivedChannels = 1, .constantChannel = 7, .constant = 100.0F},
    {.code = "K245", .signedFrom = 4, .derivedChannels = 1},
    {.code = "K306", .derivedChannels = 2},
    {.code = "K307"},
    {.code = "K333"},
}};
inline constexpr ToolRule ordinaryTool{};

/// The ordinary rule for every tool that has none of its own.
[[nodiscard]] constexpr const ToolRule& toolRule(std::string_view code) {
    for (const ToolRule& rule : toolRules) {
        if (rule.code == code) return rule;
    }
    return ordinaryTool;
}

} // namespace tarvik
