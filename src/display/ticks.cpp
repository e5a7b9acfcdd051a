#include "display/ticks.h"

#include "base/number_picture.h"

#include <array>
#include <cmath>

namespace tarvik {

namespace {

constexpr double closest = 3; // mm between fine lines

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
    const double last = std::floor(to / spacing.fine + 1e-6);
    for (double i = std::ceil(from / spacing.fine - 1e-6); i <= last; ++i) {
        const double position = i * spacing.fine;
        const auto strength = isMultiple(position, spacing.heavy)    ? TickStrength::heavy
                              : isMultiple(position, spacing.medium) ? TickStrength::medium
                                                                     : TickStrength::fine;
        ticks.push_back({position, strength});
    }
    return ticks;
}

std::string depthTickText(double position, const TickSpacing& spacing) {
    const int decimals = spacing.medium >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(spacing.medium)));
    return formatPicture(position,
                         decimals == 0 ? "0" : "0." + std::string(static_cast<size_t>(decimals), '0'));
}

std::string timeTickText(double seconds) {
    const auto whole = static_cast<long>(std::round(seconds));
    const std::string tail = formatPicture(whole % 60, "00");
    if (whole < 3600) return std::to_string(whole / 60) + ":" + tail;
    return std::to_string(whole / 3600) + ":" + formatPicture(whole / 60 % 60, "00") + ":" + tail;
}

} // namespace tarvik
