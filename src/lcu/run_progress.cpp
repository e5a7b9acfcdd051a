#include "lcu/run_progress.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

std::string minutesText(double minutes) {
    const auto whole = static_cast<long>(minutes);
    const long hours = whole / 60;
    std::string text;
    if (hours > 0) text = std::to_string(hours) + (hours == 1 ? " hr " : " hrs ");
    return text + std::to_string(whole % 60) + " mins";
}

} // namespace

std::string elapsedText(double minutes) {
    return " Elapsed logging time " + minutesText(minutes);
}

std::string completionText(const RunProgress& progress, Sampling sampling, const CivilTime& now) {
    if (progress.ended) {
        return " Completed " + minutesText(progress.elapsedMinutes) + " at " +
               formatDate(progress.endTime, "hh:mm");
    }
    if (sampling != Sampling::depth) return {};
    if (!progress.remainingMinutes) return " Time to completion unknown";
    const double minutes = std::ceil(*progress.remainingMinutes);
    const CivilTime finish = plusMilliseconds(now, static_cast<std::int64_t>(minutes * 60000));
    return " Finish in " + minutesText(minutes) + " at " + formatDate(finish, "hh:mm");
}

std::optional<double> remainingMinutes(const RunSetup& setup, double depthMetres, double metresPerMinute) {
    constexpr double standstill = 0.01; // metres a minute
    constexpr double longest = 7 * 24 * 60;
    if (setup.limitsOverride || metresPerMinute < standstill) return std::nullopt;
    const double left =
        setup.direction == Direction::up ? depthMetres - setup.topDepth : setup.bottomDepth - depthMetres;
    return std::clamp((left - setup.endDistance) / metresPerMinute, 0.0, longest);
}

} // namespace tarvik
