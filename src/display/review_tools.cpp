#include "display/review_tools.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvik {

namespace {

// Metres (or seconds) to a millimetre.
constexpr double closest = 0.001;
constexpr double edgeMillimetres = 2;
constexpr double furthestOut = 1; // 1:1000, which the list of scales has, however short the log is

/// From the least depth to the greatest of the steps that are taken; of the whole log when none is.
template <class Takes>
Extent depthsOf(const LogData& data, Takes&& takes) {
    Extent depths{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
    for (std::size_t i = 0; i < data.steps(); ++i) {
        if (!takes(i)) continue;
        depths.from = std::min(depths.from, data.depth[i]);
        depths.to = std::max(depths.to, data.depth[i]);
    }
    if (depths.from > depths.to) return extentOf(data, Axis::depth);
    return {toMetres(depths.from, data.units), toMetres(depths.to, data.units)};
}

/// Metres. A log of one or two depths has no usual step: half a metre is what a pointer may miss it by.
double farthestRead(const LogData& data) {
    return data.joinLimit > 0 ? data.joinLimit : 0.5;
}

} // namespace

Extent extentOf(const LogData& data, Axis axis) {
    const auto along = data.along(axis);
    if (along.empty()) return {};
    const auto [least, most] = std::ranges::minmax_element(along);
    return {*least * data.unitOf(axis), *most * data.unitOf(axis)};
}

DisplayView scrolled(const DisplayView& view, double units) {
    DisplayView moved = view;
    moved.top = view.positionAt(std::round(units));
    return moved;
}

DisplayView zoomed(const DisplayView& view, double factor, double y) {
    DisplayView nearer = view;
    nearer.perMillimetre = std::max(closest, view.perMillimetre / factor);
    nearer.top = view.positionAt(y) - y / nearer.unitsPer();
    return nearer;
}

DisplayView jumpedTo(const DisplayView& view, double position, double bodyHeight) {
    DisplayView there = view;
    there.top = position - bodyHeight / 3 / view.unitsPer();
    return there;
}

DisplayView showingAll(const DisplayView& view, const LogData& data, double bodyHeight) {
    return showingAll(view, extentOf(data, view.axis), bodyHeight);
}

DisplayView showingAll(const DisplayView& view, const Extent& extent, double bodyHeight) {
    DisplayView all = view;
    all.top = extent.from;
    if (bodyHeight > 0 && extent.to > extent.from) {
        all.perMillimetre = (extent.to - extent.from) * view.unitsPerMillimetre / bodyHeight;
    }
    return all;
}

double edgeRoom(const DisplayView& view) {
    return edgeMillimetres * view.perMillimetre;
}

DisplayView showingWhole(const DisplayView& view, const Extent& extent, double bodyHeight) {
    DisplayView whole = showingAll(view, extent, bodyHeight - 2 * view.millimetres(edgeMillimetres));
    whole.top -= edgeRoom(whole);
    return whole;
}

DisplayView heldInside(const DisplayView& view, const LogData& data, double bodyHeight) {
    return heldInside(view, extentOf(data, view.axis), bodyHeight);
}

DisplayView heldInside(const DisplayView& view, const Extent& extent, double bodyHeight) {
    DisplayView held = view;
    const double all = 2 * (extent.to - extent.from) * view.unitsPerMillimetre / std::max(1.0, bodyHeight);
    held.perMillimetre = std::clamp(view.perMillimetre, closest, std::max(furthestOut, all));
    const double first = extent.from - edgeRoom(held);
    const double last = extent.to + edgeRoom(held) - bodyHeight / held.unitsPer();
    held.top = std::clamp(view.top, first, std::max(first, last));
    return held;
}

Extent visibleInterval(const DisplayView& view, const Extent& extent, double bodyHeight) {
    return {std::clamp(view.top, extent.from, extent.to),
            std::clamp(view.positionAt(bodyHeight), extent.from, extent.to)};
}

Extent depthsBetween(const LogData& data, const Extent& seconds) {
    if (!data.has(Axis::time)) return extentOf(data, Axis::depth);
    return depthsOf(
        data, [&](std::size_t i) { return data.time[i] >= seconds.from && data.time[i] <= seconds.to; });
}

Extent loggedWithin(const LogData& data, const Extent& metres) {
    constexpr double same = 1e-6;
    return depthsOf(data, [&](std::size_t i) {
        const double depth = toMetres(data.depth[i], data.units);
        return depth >= metres.from - same && depth <= metres.to + same;
    });
}

Extent inHundredths(const Extent& depths) {
    constexpr double same = 1e-6; // hundredths that came through metres
    return {std::floor(depths.from * 100 + same) / 100, std::ceil(depths.to * 100 - same) / 100};
}

std::optional<double> nextStep(const LogData& data, Axis axis, double position, bool up) {
    const double unit = data.unitOf(axis);
    constexpr double same = 1e-6; // a position that came through the scale of the picture
    std::optional<double> next;
    for (const double each : data.along(axis)) {
        const double at = each * unit;
        if (up ? at >= position - same : at <= position + same) continue;
        if (!next || (up ? at > *next : at < *next)) next = at;
    }
    return next;
}

std::optional<CursorReading> readingsAt(const LogDisplay& display, const LogData& data, Axis axis,
                                        double position) {
    const auto along = data.along(axis);
    if (along.empty()) return std::nullopt;
    const double sought = position / data.unitOf(axis);
    const auto nearest =
        std::ranges::min_element(along, {}, [sought](double each) { return std::abs(each - sought); });
    const double away = std::abs(*nearest - sought) * data.unitOf(axis);
    const auto step = static_cast<std::size_t>(nearest - along.begin());
    const bool logged = axis == Axis::time || away <= farthestRead(data);
    CursorReading reading{logged ? toMetres(data.depth[step], data.units) : position,
                          data.time.empty() || !logged ? 0 : data.time[step],
                          {}};
    for (const Track& track : display.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            Reading each{curve->channel, curve->unit, curve->calibrated, std::nullopt};
            const ChannelData* channel = data.find(curve->channel);
            if (logged && channel != nullptr && !isNoValue(channel->values[step]))
                each.value = channel->values[step];
            reading.curves.push_back(std::move(each));
        }
    }
    return reading;
}

} // namespace tarvik
