#include "display/ticks.h"

#include "base/number_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

constexpr double closest = 3;        // mm between fine lines
constexpr double mostCounted = 1e15; // beyond it numbers do not tell a line from the next

// At 1:200 a line every metre (5 mm), a stronger one every 5 and the strongest every 10.
constexpr std::array<TickSpacing, 3> decade{{{1, 5, 10}, {2, 10, 50}, {5, 10, 50}}};
constexpr std::array<TickSpacing, 11> clock{{{1, 5, 10},
                                             {2, 10, 30},
                                             {5, 10, 60},
                                             {10, 30, 60},
                                             {15, 60, 300},
                                             {30, 60, 300},
                                             {60, 300, 600},
                                             {120, 600, 1800},
                                             {300, 600, 3600},
                                             {600, 1800, 3600},
                                             {1800, 3600, 7200}}};

TickSpacing times(const TickSpacing& spacing, double factor) {
    return {spacing.fine * factor, spacing.medium * factor, spacing.heavy * factor};
}

bool isMultiple(double position, double of) {
    return std::abs(position / of - std::round(position / of)) < 1e-6;
}

/// ".00": as many as tell one numbered line from the next.
std::string decimalsFor(const TickSpacing& spacing) {
    if (spacing.medium >= 1) return {};
    const auto decimals = static_cast<std::size_t>(std::ceil(-std::log10(spacing.medium) - 1e-9));
    return "." + std::string(decimals, '0');
}

} // namespace

TickSpacing depthTickSpacing(double perMillimetre) {
    const double least = closest * perMillimetre;
    const double power = std::pow(10, std::floor(std::log10(least) + 1e-9));
    for (const TickSpacing& spacing : decade) {
        if (spacing.fine * power >= least * (1 - 1e-9)) return times(spacing, power);
    }
    return times(decade.front(), power * 10);
}

TickSpacing timeTickSpacing(double secondsPerMillimetre) {
    const double least = closest * secondsPerMillimetre;
    if (least <= clock.front().fine) return depthTickSpacing(secondsPerMillimetre);
    for (const TickSpacing& spacing : clock) {
        if (spacing.fine >= least) return spacing;
    }
    return times(depthTickSpacing(secondsPerMillimetre / 3600), 3600);
}

std::vector<Tick> ticksBetween(double from, double to, const TickSpacing& spacing) {
    std::vector<Tick> ticks;
    // Counted, not added up: the thousandth line stands as exactly as the first.
    const double first = std::ceil(from / spacing.fine - 1e-6);
    const double last = std::floor(to / spacing.fine + 1e-6);
    if (!(last < mostCounted && first > -mostCounted)) return ticks;
    for (double i = first; i <= last; ++i) {
        const double position = i * spacing.fine;
        const auto strength = isMultiple(position, spacing.heavy)    ? TickStrength::heavy
                              : isMultiple(position, spacing.medium) ? TickStrength::medium
                                                                     : TickStrength::fine;
        ticks.push_back({position, strength});
    }
    return ticks;
}

std::string depthTickText(double position, const TickSpacing& spacing) {
    return formatPicture(position, "0" + decimalsFor(spacing));
}

std::string timeTickText(double seconds, const TickSpacing& spacing) {
    const double finest = std::min(1.0, spacing.medium); // 59.9996 s is a minute, not 0:60
    const double rounded = std::round(seconds / finest) * finest;
    const double minutes = std::floor(rounded / 60 + 1e-9);
    const auto whole = static_cast<long>(minutes);
    const std::string tail =
        formatPicture(std::max(0.0, rounded - minutes * 60), "00" + decimalsFor(spacing));
    if (whole < 60) return std::to_string(whole) + ":" + tail;
    return std::to_string(whole / 60) + ":" + formatPicture(whole % 60, "00") + ":" + tail;
}

} // namespace tarvik
