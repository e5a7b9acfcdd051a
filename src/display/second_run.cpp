#include "display/second_run.h"

#include "display/default_display.h"
#include "display/display_template.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

LineKind otherLine(LineKind line) {
    switch (line) {
    case LineKind::solid:
        return LineKind::dashed;
    case LineKind::dashed:
    case LineKind::dashDot:
        return LineKind::dotted;
    case LineKind::dotted:
        return LineKind::dashDot;
    case LineKind::points:
        break;
    }
    return LineKind::points;
}

const LogCurve* curveOf(const LogDisplay& display, const std::string& channel) {
    for (const Track& track : display.tracks) {
        const auto found = std::ranges::find(track.curves, channel, &LogCurve::channel);
        if (found != track.curves.end()) return &*found;
    }
    return nullptr;
}

std::string nameOf(const ReviewLog& log) {
    std::string name;
    for (const std::string& part :
         {log.header.hole.holeId, log.header.tool.code, log.header.runDate, log.header.startTime}) {
        if (part.empty()) continue;
        if (!name.empty()) name += " ";
        name += part;
    }
    return name.empty() ? "no name on file" : name;
}

} // namespace

SecondRun secondRun(const ReviewLog& log, Comparison how, const Scheme& scheme) {
    return {how, logDataOf(log), defaultDisplay(log, scheme)};
}

std::string comparisonLegend(const LogDisplay& display, const ReviewLog& first, const ReviewLog& other,
                             const SecondRun& second) {
    std::string legend =
        second.how == Comparison::beside
            ? "Left: " + nameOf(first) + "     Right: " + nameOf(other)
            : "As in the heads: " + nameOf(first) + "     Paler, other dashes: " + nameOf(other);
    if (second.how == Comparison::beside && isOfAnotherKind(logDataOf(first), second)) return legend;
    const std::string missing = missingIn(display, second.data);
    if (!missing.empty()) legend += "     Only in the first: " + missing;
    return legend;
}

double paneGap(const DisplayView& view) {
    return std::round(view.millimetres(2.1));
}

DisplayView paneOf(DisplayView whole, Comparison how) {
    if (how == Comparison::beside) whole.width = std::floor((whole.width - paneGap(whole)) / 2);
    return whole;
}

// What the second run lacks keeps its column: equally spaced, the others would move to the left.
LogDisplay overlaid(const LogDisplay& display) {
    constexpr double tint = 0.72; // of the ink: paler, still told from the ground
    LogDisplay over = display;
    over.marks.clear();
    over.depthTrack.speedBar = false;
    for (Track& track : over.tracks) {
        for (LogCurve& curve : track.curves) {
            curve.style.ownColour = blended(display.scheme.surface, colourOf(curve, display.scheme), tint);
            curve.style.line = otherLine(curve.style.line);
            curve.style.fill = FillKind::none;
            curve.offScale = OffScale::cut; // backups of two runs at once cannot be read
        }
    }
    return over;
}

bool isOfAnotherKind(const LogData& first, const SecondRun& second) {
    return std::ranges::any_of(second.data.channels, [&first](const ChannelData& channel) {
        return channel.name != speedCurve && first.find(channel.name) == nullptr;
    });
}

LogDisplay beside(const LogDisplay& display, const LogData& first, const SecondRun& second) {
    if (!isOfAnotherKind(first, second)) {
        LogDisplay other = display;
        other.marks = second.usual.marks;
        fitToData(other, second.data);
        return other;
    }
    LogDisplay other = second.usual;
    other.scheme = display.scheme;
    other.depthTrack = display.depthTrack;
    for (Track& track : other.tracks) {
        for (LogCurve& curve : track.curves) {
            if (const LogCurve* const known = curveOf(display, curve.channel)) curve.scale = known->scale;
        }
    }
    return other;
}

Extent extentOfBoth(const LogData& first, const LogData& second, Axis axis) {
    const Extent a = extentOf(first, axis);
    if (second.steps() == 0) return a;
    const Extent b = extentOf(second, axis);
    if (first.steps() == 0) return b;
    return {std::min(a.from, b.from), std::max(a.to, b.to)};
}

std::string missingIn(const LogDisplay& display, const LogData& second) {
    std::string names;
    for (const Track& track : display.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            if (second.find(curve->channel) != nullptr) continue;
            if (!names.empty()) names += ", ";
            names += curve->channel;
        }
    }
    return names;
}

} // namespace tarvik
