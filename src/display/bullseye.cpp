#include "display/bullseye.h"

#include "display/curve_rules.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int fewestRings = 3;
constexpr int mostRings = 6;
constexpr double leastRing = 0.1; // metres

void chooseRings(Bullseye& plan, double furthest) {
    for (double power = leastRing;; power *= 10) {
        for (const double step : {1.0, 2.0, 5.0}) {
            if (step * power * mostRings < furthest) continue;
            plan.ringStep = step * power;
            plan.rings =
                std::clamp(static_cast<int>(std::ceil(furthest / plan.ringStep)), fewestRings, mostRings);
            return;
        }
    }
}

std::optional<float> latest(const ChannelData* channel) {
    if (channel == nullptr || channel->values.empty() || isNoValue(channel->values.back()))
        return std::nullopt;
    return channel->values.back();
}

bool belongs(CurveGroup group, std::string_view caption) {
    const bool measured = group == CurveGroup::field || group == CurveGroup::gravity;
    const bool derived = group == CurveGroup::direction || group == CurveGroup::way;
    if (caption == magneticsCaption) return measured;
    if (caption == deviationCaption) return derived;
    return true;
}

} // namespace

Bullseye bullseyeOf(const LogData& data) {
    Bullseye plan;
    const ChannelData* east = data.find("East");
    const ChannelData* north = data.find("North");
    double furthest = 0;
    plan.summed = !data.sampledByTime;
    if (plan.summed && east != nullptr && north != nullptr) {
        for (std::size_t i = 0; i < data.steps(); ++i) {
            const PlanPoint point{east->values[i], north->values[i]};
            if (!std::isfinite(point.east) || !std::isfinite(point.north)) continue;
            plan.current = point;
            furthest = std::max(furthest, std::hypot(point.east, point.north));
            // A centimetre is what the run file keeps.
            if (!plan.way.empty() &&
                std::hypot(point.east - plan.way.back().east, point.north - plan.way.back().north) < 0.005) {
                continue;
            }
            plan.way.push_back(point);
        }
    }
    chooseRings(plan, furthest);
    const ChannelData* azimuth = data.find("Azimuth");
    plan.azimuth = latest(azimuth);
    plan.inclination = latest(data.find("Inclination"));
    plan.calibrated = azimuth == nullptr || azimuth->calibrated;
    return plan;
}

LogDisplay deviationDisplay(const LogDisplay& display, std::string_view caption) {
    LogDisplay part = display;
    for (Track& track : part.tracks) {
        std::erase_if(track.curves, [&](const LogCurve& curve) {
            return !belongs(curveRule(curve.channel).group, caption);
        });
    }
    std::erase_if(part.tracks, [](const Track& track) { return track.curves.empty(); });
    if (part.tracks.empty()) part.tracks.emplace_back();
    part.depthPlace = std::min<std::size_t>(1, part.tracks.size());
    return part;
}

} // namespace tarvik
