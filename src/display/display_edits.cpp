#include "display/display_edits.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "display/default_display.h"
#include "processing/log_filter.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double furthestValue = 1e30;

std::string rangeProblem(std::string_view text, double least, double most) {
    const auto number = parseNumber(trimmed(text));
    if (number && *number >= least && *number <= most) return {};
    return "A number from " + shortestNumber(least) + " to " + shortestNumber(most) + ".";
}

} // namespace

std::string scaleEndProblem(ScaleKind kind, std::string_view text) {
    const auto number = parseNumber(trimmed(text));
    if (!number || !(std::abs(*number) <= furthestValue)) return "A number, such as 0 or 150.";
    if (kind == ScaleKind::logarithmic && *number <= 0) return "Above 0 on a logarithmic scale.";
    return {};
}

std::string scaleProblem(ScaleKind kind, std::string_view left, std::string_view right) {
    std::string problem = scaleEndProblem(kind, right);
    if (!problem.empty() || !scaleEndProblem(kind, left).empty()) return problem;
    if (parseNumber(trimmed(left)) == parseNumber(trimmed(right))) return "Another number than the left end.";
    return {};
}

std::string filterProblem(std::string_view text) {
    try {
        (void)filterLength(trimmed(text));
        return {};
    } catch (const Failure&) {
        return "None, or a whole number of points.";
    }
}

std::string lineWidthProblem(std::string_view text) {
    return rangeProblem(text, 0.05, 3);
}

std::string trackWidthProblem(std::string_view text) {
    return rangeProblem(text, 5, 1000);
}

std::string divisionsProblem(std::string_view text) {
    const auto number = parseInteger(trimmed(text));
    return number && *number >= 1 && *number <= 100 ? "" : "A whole number from 1 to 100.";
}

std::size_t moveCurve(LogDisplay& display, std::size_t track, std::size_t curve, std::size_t toTrack) {
    if (track == toTrack) return curve;
    auto& from = display.tracks[track].curves;
    auto& to = display.tracks[toTrack].curves;
    to.push_back(std::move(from[curve]));
    from.erase(from.begin() + static_cast<std::ptrdiff_t>(curve));
    return to.size() - 1;
}

std::size_t raiseCurve(Track& track, std::size_t curve) {
    if (curve == 0) return curve;
    std::swap(track.curves[curve], track.curves[curve - 1]);
    return curve - 1;
}

std::size_t lowerCurve(Track& track, std::size_t curve) {
    if (curve + 1 >= track.curves.size()) return curve;
    return raiseCurve(track, curve + 1) + 1;
}

void removeCurve(Track& track, std::size_t curve) {
    track.curves.erase(track.curves.begin() + static_cast<std::ptrdiff_t>(curve));
}

std::size_t addTrack(LogDisplay& display, std::size_t track) {
    display.tracks.insert(display.tracks.begin() + static_cast<std::ptrdiff_t>(track) + 1, Track{});
    if (display.depthPlace > track + 1) ++display.depthPlace;
    return track + 1;
}

bool removeTrack(LogDisplay& display, std::size_t track) {
    if (display.tracks.size() <= 1) return false;
    display.tracks.erase(display.tracks.begin() + static_cast<std::ptrdiff_t>(track));
    if (display.depthPlace > track) --display.depthPlace;
    return true;
}

void placeDepthTrack(LogDisplay& display, std::size_t place) {
    display.depthPlace = std::min(place, display.tracks.size());
}

LogCurve curveOfChannel(const ChannelData& channel, const LogDisplay& usual) {
    for (const Track& track : usual.tracks) {
        const auto found = std::ranges::find(track.curves, channel.name, &LogCurve::channel);
        if (found != track.curves.end()) return *found;
    }
    const ScalePair scale = roundScale(channel.values);
    LogCurve curve;
    curve.channel = channel.name;
    curve.unit = channel.unit;
    curve.calibrated = channel.calibrated;
    curve.scale = {ScaleKind::linear, scale.left, scale.right};
    return curve;
}

std::vector<std::string> channelNames(const LogData& data) {
    std::vector<std::string> names;
    for (const ChannelData& channel : data.channels) names.emplace_back(channel.name);
    return names;
}

} // namespace tarvik
