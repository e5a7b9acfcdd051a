// What single tools add to the measured channels: the derived channels behind them, and their names.
#pragma once

#include <array>
#include <string_view>

namespace tarvik {

struct ToolRule {
    std::string_view code;
    int derivedChannels = 0;      ///< appended behind the channels that a scan carries
    std::string_view specialKind; ///< as the run file names tools that need processing of their own
    int firstNamed = 0;           ///< channel number of the first of `names`
    std::array<std::string_view, 6> names{};

    [[nodiscard]] constexpr std::string_view derivedName(int channel) const {
        const int index = channel - firstNamed;
        if (firstNamed == 0 || index < 0 || index >= static_cast<int>(names.size())) return {};
        return names[static_cast<std::size_t>(index)];
    }
};

constexpr std::array<ToolRule, 8> toolRules{{
    {"K417", 4, "DEVIATION", 7, {"Azimuth", "Inclination", "Total field", "East", "North", "Distance"}},
    {"K521", 0, "SONIC", 0, {}},
    {"K522", 1, "SONIC", 0, {}},
    {"K240", 1, "", 0, {}},
    {"K245", 1, "", 0, {}},
    {"K306", 2, "", 0, {}},
    {"K307", 0, "", 0, {}},
    {"K333", 0, "", 0, {}},
}};

/// Any other tool has no derived channels.
[[nodiscard]] constexpr ToolRule toolRule(std::string_view code) {
    for (const ToolRule& rule : toolRules) {
        if (rule.code == code) return rule;
    }
    return {};
}

} // namespace tarvik
