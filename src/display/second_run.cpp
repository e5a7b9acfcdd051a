#include "display/second_run.h"

#include "display/display_template.h"

#include <algorithm>

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

} // namespace

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

LogDisplay beside(const LogDisplay& display, const LogData& second, const std::vector<DepthMark>& marks) {
    LogDisplay other = display;
    other.marks = marks;
    fitToData(other, second);
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
