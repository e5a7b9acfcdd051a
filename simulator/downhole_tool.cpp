#include "simulator/downhole_tool.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace lcusim {

namespace {

constexpr std::array<std::string_view, 6> axisNames{"magx", "magy", "magz", "accx", "accy", "accz"};
constexpr double countsPerUnit = 10'000; ///< of field and of gravity
constexpr double vectorNoise = 2;        ///< counts

constexpr std::array<std::string_view, 4> toldHowToCount{"K551", "K552", "K553", "K554"};

int axisOf(const ChannelProfile& channel, std::size_t index, std::string_view toolCode) {
    const auto named = std::ranges::find(axisNames, channel.synth);
    if (named != axisNames.end()) return static_cast<int>(named - axisNames.begin());
    return toolCode == "K417" && index < axisNames.size() ? static_cast<int>(index) : -1;
}

/// A scale that one word of a scan can show; scales of values that the host computes are longer or missing.
bool fitsWord(const ChannelProfile& channel) {
    const auto fits = [](double end) { return end >= -32768 && end <= 65535; };
    return channel.uncalibratedLeft != channel.uncalibratedRight && fits(channel.uncalibratedLeft) &&
           fits(channel.uncalibratedRight);
}

/// What a sensor shows on its full scale when its record does not say.
std::pair<double, double> usualEnds(const CountRule& rule) {
    switch (rule.kind) {
    case CountKind::pulses:
        return {0, 500};
    case CountKind::period:
        return {rule.factor * 1e6 / 50'000, rule.factor * 1e6 / 5'000};
    case CountKind::level12:
        return {0, 2'000};
    case CountKind::level:
        break;
    }
    return {0, 4'000};
}

} // namespace

DownholeTool::DownholeTool(const ToolProfile& tool, int mode, std::uint64_t seed)
    : code_(tool.code),
      maximumCurrent_(tool.maximumCurrent),
      geology_(seed),
      path_(seed),
      random_(seed ^ 0x546F6F6C) {
    if (mode < 1 || mode > 2) throw std::invalid_argument("tool mode must be 1 or 2");
    const ToolMode& chosen = tool.modes[static_cast<std::size_t>(mode - 1)];
    channels_.resize(std::min<std::size_t>(chosen.wordsOnLine(), 20));
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        const ChannelProfile source = i < chosen.channels.size() ? chosen.channels[i] : ChannelProfile{};
        channels_[i] = {.left = source.uncalibratedLeft,
                        .right = source.uncalibratedRight,
                        .property = Geology::property(source.synth, source.name),
                        .axis = axisOf(source, i, code_),
                        .scaled = fitsWord(source)};
    }
    rules_ = countRules(code_, chosen.sensorFactors, channels_.size());
    setUnscaledEnds();
}

void DownholeTool::setUnscaledEnds() {
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        if (channels_[i].scaled) continue;
        std::tie(channels_[i].left, channels_[i].right) = usualEnds(rules_[i]);
    }
}

void DownholeTool::setSensorFactors(std::string_view text) {
    if (std::ranges::find(toldHowToCount, code_) == toldHowToCount.end()) return;
    rules_ = countRules(code_, text, channels_.size());
    setUnscaledEnds();
}

double DownholeTool::reading(const Channel& channel, double depth) const {
    if (channel.axis >= 3)
        return countsPerUnit * vectors_.gravity[static_cast<std::size_t>(channel.axis - 3)];
    if (channel.axis >= 0) return countsPerUnit * vectors_.field[static_cast<std::size_t>(channel.axis)];
    return channel.left + (channel.right - channel.left) * geology_.fraction(channel.property, depth);
}

double DownholeTool::counted(double reading, const CountRule& rule, double noise, double seconds) {
    switch (rule.kind) {
    case CountKind::pulses:
        return random_.poisson(reading * seconds);
    case CountKind::period: {
        const double rate = reading + noise * random_.normal();
        return rate <= 0 ? 0 : rule.factor * 1e6 / rate;
    }
    case CountKind::level12: {
        const double level = std::clamp(std::round(reading + noise * random_.normal()), -2047.0, 2048.0);
        return level < 0 ? level + 4096 : level;
    }
    case CountKind::level:
        break;
    }
    return reading + noise * random_.normal();
}

void DownholeTool::measure(double depth, double seconds, std::span<std::uint16_t> words,
                           std::span<double> readings) {
    vectors_ = path_.vectors(depth);
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        const Channel& channel = channels_[i];
        const bool vector = channel.axis >= 0;
        readings[i] = reading(channel, depth);
        const double noise = vector ? vectorNoise : 0.003 * std::abs(channel.right - channel.left);
        const CountRule rule = vector ? CountRule{} : rules_[i];
        const double count =
            std::clamp(std::round(counted(readings[i], rule, noise, seconds)), -32768.0, 65535.0);
        words[i] = static_cast<std::uint16_t>(static_cast<std::int32_t>(count));
    }
}

double DownholeTool::current() {
    const double usual = maximumCurrent_ > 0 ? 0.6 * maximumCurrent_ : 60;
    return usual * random_.between(0.98, 1.02);
}

} // namespace lcusim
