#include "simulator/tool_profile.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace lcusim {

namespace {

/// Of a comma-separated list, the item at `index` from 0; empty past its end.
std::string_view itemOf(std::string_view list, std::size_t index) {
    for (; index > 0; --index) {
        const std::size_t comma = list.find(',');
        if (comma == std::string_view::npos) return {};
        list.remove_prefix(comma + 1);
    }
    return list.substr(0, list.find(','));
}

CountRule ruleOf(std::string_view item) {
    if (item.empty()) return {};
    if (item.starts_with("pr")) return {CountKind::pulses, 1};
    const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(item.front())));
    if (letter >= 'A' && letter <= 'E') return {CountKind::pulses, 1};
    if (letter >= 'P' && letter <= 'S') return {CountKind::level12, 1};
    if (letter < 'F' || letter > 'J') return {};
    CountRule period{CountKind::period, 0};
    std::from_chars(item.data() + 1, item.data() + item.size(), period.factor);
    return period;
}

} // namespace

std::vector<CountRule> countRules(std::string_view toolCode, std::string_view sensorFactors,
                                  std::size_t channels) {
    std::vector<CountRule> rules(channels);
    // The electronics of K240 count alike in both modes, whatever its record says.
    if (toolCode == "K240") sensorFactors = "f21,g21,h21,i21,a1,j21";
    if (sensorFactors != "pr8") {
        for (std::size_t i = 0; i < channels; ++i) rules[i] = ruleOf(itemOf(sensorFactors, i));
    }
    if (toolCode == "K245") {
        for (std::size_t i = 4; i < std::min<std::size_t>(channels, 6); ++i)
            rules[i] = {CountKind::pulses, 1};
    }
    return rules;
}

} // namespace lcusim
