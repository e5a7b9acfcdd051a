#include "display/default_display.h"

#include "base/text.h"
#include "display/annotations.h"
#include "display/curve_rules.h"
#include "display/minmax_pyramid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tarvik {

namespace {

constexpr std::size_t curvesPerTrack = 4;
constexpr std::array<LineKind, 4> lineKinds{LineKind::solid, LineKind::dashed, LineKind::dashDot,
                                            LineKind::dotted};
// Those that come first differ most, also for eyes that confuse red and green.
constexpr std::array<Ink, inkCount> inkOrder{Ink::blue,   Ink::vermilion, Ink::black, Ink::purple,
                                             Ink::orange, Ink::green,     Ink::sky,   Ink::brown};

/// Resistivities are read on decades: a scale that begins at 0 keeps its right end and gets three of them.
CurveScale logarithmic(const ScalePair& scale) {
    if (scale.left > 0 && scale.right > 0) return {ScaleKind::logarithmic, scale.left, scale.right};
    if (scale.right > 0) return {ScaleKind::logarithmic, scale.right / 1000.0, scale.right};
    return {ScaleKind::logarithmic, 0.2, 2000};
}

/// Whether most of the values are the custom's own: densities in kg/m3 lie nowhere on a scale for g/cm3, and
/// a gamma ray in counts a second now and then on one for API. True where there are no values to judge by.
bool suits(const CurveScale& custom, std::span<const float> values) {
    const double least = std::min(custom.left, custom.right);
    const double most = std::max(custom.left, custom.right);
    std::size_t all = 0;
    std::size_t inside = 0;
    for (const float value : values) {
        if (isNoValue(value)) continue;
        ++all;
        if (value >= least && value <= most) ++inside;
    }
    return inside * 3 >= all * 2;
}

bool touches(const CurveScale& scale, const ValueRange& values) {
    return values.empty() || (values.most >= std::min(scale.left, scale.right) &&
                              values.least <= std::max(scale.left, scale.right));
}

/// Whole decades around the values above 0.
CurveScale decadesAround(std::span<const float> values) {
    double least = std::numeric_limits<double>::max();
    double most = 0;
    for (const float value : values) {
        if (isNoValue(value) || !(value > 0)) continue;
        least = std::min<double>(least, value);
        most = std::max<double>(most, value);
    }
    const double left = std::floor(std::log10(least));
    return {ScaleKind::logarithmic, std::pow(10, left),
            std::pow(10, std::max(left + 1, std::ceil(std::log10(most))))};
}

CurveScale customScale(const DisplayChannel& channel, const CurveRule& rule) {
    const bool decades = rule.scale.kind == ScaleKind::logarithmic;
    if (suits(rule.scale, channel.values)) return rule.scale;
    if (decades) return rangeOf(channel.values).most > 0 ? decadesAround(channel.values) : rule.scale;
    const ScalePair round = roundScale(channel.values);
    const bool reversed = rule.scale.left > rule.scale.right;
    return {ScaleKind::linear, reversed ? round.right : round.left, reversed ? round.left : round.right};
}

CurveScale scaleOf(const DisplayChannel& channel, const CurveRule& rule) {
    const bool known = channel.scale.left != channel.scale.right;
    if (channel.calibrated && known && rule.scale.kind == ScaleKind::logarithmic)
        return logarithmic(channel.scale);
    if (channel.calibrated && !known && rule.hasScale()) return customScale(channel, rule);
    // A recorded scale that none of the values lies on would show nothing but how often they go round.
    const CurveScale recorded{ScaleKind::linear, channel.scale.left, channel.scale.right};
    const bool holds = known && touches(recorded, rangeOf(channel.values));
    const ScalePair scale = holds ? channel.scale : roundScale(channel.values);
    return {ScaleKind::linear, scale.left, scale.right};
}

/// Within a track neither an ink nor a line style comes twice, as long as there are enough.
void addCurve(Track& track, const DisplayChannel& channel, const CurveRule& rule) {
    LogCurve curve;
    curve.channel = channel.name;
    curve.unit = channel.unit;
    curve.calibrated = channel.calibrated;
    curve.scale = scaleOf(channel, rule);
    const auto taken = [&](Ink ink) {
        return std::ranges::any_of(track.curves,
                                   [&](const LogCurve& other) { return other.style.ink == ink; });
    };
    curve.style.ink = rule.ink;
    for (std::size_t i = 0; i < inkOrder.size() && taken(curve.style.ink); ++i) curve.style.ink = inkOrder[i];
    curve.style.line =
        rule.points ? LineKind::points : lineKinds[std::min(track.curves.size(), lineKinds.size() - 1)];
    if (curve.style.line == LineKind::points) curve.style.width = 0.5;
    if (curve.scale.kind == ScaleKind::logarithmic) track.grid = ScaleKind::logarithmic;
    track.curves.push_back(std::move(curve));
}

/// The group, and among channels that no rule knows the unit: what is read together shares a track.
struct TrackKey {
    CurveGroup group = CurveGroup::other;
    std::string unit;

    friend auto operator<=>(const TrackKey&, const TrackKey&) = default;
};

struct KeyedTrack {
    TrackKey key;
    Track track;
};

std::vector<KeyedTrack> tracksOf(std::span<const DisplayChannel> channels) {
    std::vector<KeyedTrack> tracks;
    for (const DisplayChannel& channel : channels) {
        const CurveRule& rule = curveRule(channel.name, channel.unit);
        const TrackKey key{rule.group, rule.group == CurveGroup::other ? upperCase(channel.unit) : ""};
        const auto open = std::ranges::find_if(tracks, [&](const KeyedTrack& each) {
            return each.key == key && each.track.curves.size() < curvesPerTrack;
        });
        if (open == tracks.end()) {
            tracks.push_back({key, {}});
            addCurve(tracks.back().track, channel, rule);
        } else {
            addCurve(open->track, channel, rule);
        }
    }
    std::ranges::stable_sort(tracks, {}, [](const KeyedTrack& each) { return each.key.group; });
    return tracks;
}

void addMarks(LogDisplay& display, const RunHeader& header) {
    const DepthUnits units = header.setup.units;
    if (const auto casing = depthSaid(header.hole.casingDepth, units)) {
        display.marks.push_back({*casing, MarkKind::casing, "Casing"});
    }
    if (const auto fluid = depthSaid(header.hole.fluidLevel, units)) {
        display.marks.push_back({*fluid, MarkKind::fluid, "Fluid level"});
    }
    addMarks(display.marks, annotationsIn(header.notes, units));
}

ScalePair recordedScale(const RunHeader& header, std::string_view channel, bool calibrated) {
    const auto found = std::ranges::find(header.channels, channel, &RunChannel::name);
    if (found == header.channels.end()) return {};
    return calibrated ? found->calibrated : found->uncalibrated;
}

} // namespace

ScalePair roundScale(std::span<const float> values) {
    const ValueRange range = rangeOf(values);
    if (range.empty() || !std::isfinite(range.least) || !std::isfinite(range.most)) return {0, 1};
    const double least = range.least;
    const double size =
        range.most > range.least ? double{range.most} - least : std::max(1.0, std::abs(least));
    const double power = std::pow(10, std::floor(std::log10(size / 5)));
    const double share = size / 5 / power;
    const double step = power * (share <= 1 ? 1 : share <= 2 ? 2 : share <= 5 ? 5 : 10);
    double left = std::floor(least / step) * step;
    double right = std::ceil(double{range.most} / step) * step;
    if (range.most == range.least && range.least != 0) { // a curve in the middle is seen
        left -= 2 * step;
        right += 2 * step;
    }
    if (right <= left) right = left + step;
    constexpr double furthest = 1e30; // what a scale may be set to by hand
    left = std::clamp(left, -furthest, furthest);
    right = std::clamp(right, -furthest, furthest);
    if (left == right) return {0, static_cast<float>(right)};
    return {static_cast<float>(left), static_cast<float>(right)};
}

LogDisplay defaultDisplay(std::span<const DisplayChannel> channels, DepthUnits units, const Scheme& scheme) {
    std::vector<DisplayChannel> drawn;
    std::ranges::copy_if(channels, std::back_inserter(drawn),
                         [](const DisplayChannel& channel) { return channel.name != speedCurve; });
    if (drawn.empty()) drawn.assign(channels.begin(), channels.end());
    LogDisplay display;
    display.scheme = scheme;
    for (KeyedTrack& each : tracksOf(drawn)) display.tracks.push_back(std::move(each.track));
    if (display.tracks.empty()) display.tracks.emplace_back();
    display.depthPlace = 1;
    display.depthTrack.numbers = units == DepthUnits::metres ? DepthNumbers::metres : DepthNumbers::feet;
    return display;
}

LogDisplay defaultDisplay(const ReviewLog& log, const Scheme& scheme) {
    std::vector<DisplayChannel> channels;
    for (const ReviewChannel& channel : log.channels) {
        channels.push_back({channel.name, channel.unit, channel.calibrated,
                            recordedScale(log.header, channel.name, channel.calibrated), channel.values});
    }
    LogDisplay display = defaultDisplay(channels, log.header.setup.units, scheme);
    addMarks(display, log.header);
    return display;
}

LogDisplay defaultDisplay(const RunHeader& header, const Scheme& scheme) {
    std::vector<DisplayChannel> channels;
    for (const RunChannel& channel : header.channels) {
        const bool calibrated = channel.calibration.state != "None";
        channels.push_back({channel.name,
                            channel.unit,
                            calibrated,
                            calibrated ? channel.calibrated : channel.uncalibrated,
                            {}});
    }
    LogDisplay display = defaultDisplay(channels, header.setup.units, scheme);
    addMarks(display, header);
    return display;
}

} // namespace tarvik
