#include "equipment/sensor_factors.h"

#include "base/failure.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace tarvik {

namespace {

constexpr std::int16_t countRate = 1;
constexpr std::int16_t period = 2;
constexpr std::int16_t signedLevel = 3;
constexpr std::int16_t plainLevel = 4;
constexpr std::int16_t parallelLevel = 5;

/// The first item; the list goes on behind its comma.
std::string_view takeItem(std::string_view& list) {
    const std::size_t comma = list.find(',');
    const std::string_view item = list.substr(0, comma);
    list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
    return item;
}

float periodConstant(std::string_view item) {
    const double value = leadingNumber(item.substr(1));
    if (std::abs(value) > std::numeric_limits<float>::max()) {
        throw Failure(ErrorNumber::overflow, "Sensor factor \"" + std::string(item) +
                                                 "\": the number is too large; correct the tool record");
    }
    return static_cast<float>(value);
}

void applyItem(std::string_view item, SensorFactor& channel) {
    const char letter = item.empty() ? '\0' : upperCase(item.substr(0, 1)).front();
    if (letter >= 'A' && letter <= 'E') {
        channel = {countRate, 1};
    } else if (letter >= 'F' && letter <= 'J') {
        channel = {period, periodConstant(item)};
    } else if (letter >= 'P' && letter <= 'S') {
        channel = {signedLevel, 1};
    } else {
        channel.kind = plainLevel;
    }
    if (item.starts_with("pr")) channel = {countRate, 1};
}

} // namespace

void applySensorFactors(std::string_view toolCode, std::string_view text, int channels,
                        SensorFactors& factors) {
    // The list of this tool does not fit the field of the record.
    if (toolCode == "K240") text = "f21,g21,h21,i21,a1,j21";

    const auto measured = static_cast<std::size_t>(std::clamp(channels, 0, maxChannels));
    const bool allParallel = text == "pr8";
    for (std::size_t channel = 1; channel <= measured; ++channel) {
        if (allParallel) {
            factors[channel] = {parallelLevel, 1};
        } else {
            applyItem(takeItem(text), factors[channel]);
        }
    }
    for (std::size_t channel = measured + 1; channel < factors.size(); ++channel) factors[channel].kind = 0;

    // Two counters that run in both directions, whatever the text says of them.
    if (toolCode == "K245") factors[5] = factors[6] = {countRate, 1};
}

} // namespace tarvik
