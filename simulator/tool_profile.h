// A downhole tool as the simulated box sees it: how many words each scan carries and what the counts stand
// for.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lcusim {

/// How a sensor turns its reading into the 16-bit count of a scan.
enum class CountKind : std::uint8_t {
    pulses,  ///< pulses counted since the scan before
    period,  ///< units of time per pulse: factor x 1,000,000 / reading
    level12, ///< signed level in 12 bits
    level,   ///< the reading itself
};

struct ChannelProfile {
    std::string name = {};
    std::string unit = {};
    double uncalibratedLeft =
        0; ///< readings (counts a second, hertz, counts) at the ends of the display scale
    double uncalibratedRight = 0;
    double calibratedLeft = 0;
    double calibratedRight = 0;
    std::string synth = {}; ///< rock or fluid property that drives the sensor; empty: guessed from the name
};

struct ToolMode {
    std::string name = {};
    std::string kind = {}; ///< "PULSE", "MUX" or empty
    std::string sensorFactors = {};
    std::size_t words = 0; ///< 16-bit words on the line; 0: one a channel
    std::vector<std::string> parameters = {};
    std::vector<ChannelProfile> channels = {};

    [[nodiscard]] std::size_t wordsOnLine() const { return words != 0 ? words : channels.size(); }
};

struct ToolProfile {
    std::string code = {};
    std::string name = {};
    double maximumCurrent = 0; ///< mA; 0: none known
    std::array<ToolMode, 2> modes = {};
};

struct CountRule {
    CountKind kind = CountKind::level;
    double factor = 0; ///< of `period` alone
};

/// How each channel of a mode counts, from its sensor-factor text ("a1,f21,pr8,r11") and the tool's
/// peculiarities.
[[nodiscard]] std::vector<CountRule> countRules(std::string_view toolCode, std::string_view sensorFactors,
                                                std::size_t channels);

} // namespace lcusim
