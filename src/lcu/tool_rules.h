// What single tools do differently: signed channel words, and channels derived from the measured ones and
// appended behind them, with their names.
#pragma once

#include "base/limits.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvik {

/// A button of the tool bar that only some tools need.
struct ToolButton {
    std::string_view key;
    std::string_view caption;
};
inline constexpr ToolButton bullseyeButton{"MB-Bullseye", "Bullseye"};
inline constexpr ToolButton gaugesButton{"MB-Fluid", "Gauges"};

struct ToolRule {
    std::string_view code = {};
    std::string_view specialKind = {}; ///< as the run file names tools that need processing of their own
    const ToolButton* button = nullptr;

    int derivedChannels = 0; ///< by how much the channel count exceeds the channels that a scan carries
    int firstDerived = 0;    ///< first channel that is computed; 0: the one behind those carried
    std::array<std::string_view, 6> names = {}; ///< from `firstDerived` on

    int zeroUpTo = 0;        ///< derived channels read 0 up to this one, also beyond the channel count
    int constantChannel = 0; ///< the derived channel that always reads `constant`; 0: none
    float constant = 0;
    bool deviation = false; ///< the derived channels are computed from the direction of the hole

    int signedFrom = maxChannels + 1; ///< first channel whose words are signed, for the value decoder
    bool rawSigned = false; ///< all words are signed, for the raw decoder: another list of tools, on purpose

    [[nodiscard]] constexpr std::string_view derivedName(int channel) const {
        const int index = channel - firstDerived;
        if (firstDerived == 0 || index < 0 || index >= static_cast<int>(names.size())) return {};
        return names[static_cast<std::size_t>(index)];
    }
};

// The fluid tools' temperatures need no rule: a channel in "Deg F" is calibrated in degrees Fahrenheit.
inline constexpr std::array<ToolRule, 8> toolRules{{
    {.code = "K417",
     .specialKind = "DEVIATION",
     .button = &bullseyeButton,
     .derivedChannels = 4,
     .firstDerived = 7, // a scan carries eight words; the last two are no measurements
     .names = {"Azimuth", "Inclination", "Total field", "East", "North", "Distance"},
     .deviation = true,
     .signedFrom = 1,
     .rawSigned = true},
    {.code = "K521", .specialKind = "SONIC"},
    {.code = "K522", .specialKind = "SONIC", .derivedChannels = 1, .zeroUpTo = 9, .rawSigned = true},
    {.code = "K240", .derivedChannels = 1, .constantChannel = 7, .constant = 100.0F},
    {.code = "K245", .derivedChannels = 1, .signedFrom = 4},
    {.code = "K306", .button = &gaugesButton, .derivedChannels = 2},
    {.code = "K307", .button = &gaugesButton},
    {.code = "K333"},
}};
inline constexpr ToolRule ordinaryTool{};

/// Any other tool has unsigned words and no derived channels.
[[nodiscard]] constexpr const ToolRule& toolRule(std::string_view code) {
    for (const ToolRule& rule : toolRules) {
        if (rule.code == code) return rule;
    }
    return ordinaryTool;
}

} // namespace tarvik
