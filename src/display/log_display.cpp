#include "display/log_display.h"

#include "base/text.h"

#include <algorithm>

namespace tarvik {

std::vector<const LogCurve*> shownCurves(const Track& track) {
    std::vector<const LogCurve*> shown;
    for (const LogCurve& curve : track.curves) {
        if (curve.shown) shown.push_back(&curve);
    }
    return shown;
}

LogDisplay equallySpaced(const LogDisplay& display) {
    LogDisplay spaced = display;
    spaced.tracks.clear();
    std::size_t place = 0;
    for (std::size_t i = 0; i < display.tracks.size(); ++i) {
        for (const LogCurve* curve : shownCurves(display.tracks[i])) {
            Track track = display.tracks[i];
            track.grid = curve->scale.kind;
            track.width = 40;
            track.curves = {*curve};
            spaced.tracks.push_back(std::move(track));
        }
        if (i + 1 == display.depthPlace) place = spaced.tracks.size();
    }
    spaced.depthPlace = std::min(place, spaced.tracks.size());
    // Ten divisions of a narrow track would be a carpet in which its curve drowns.
    const int divisions = spaced.tracks.size() > 14 ? 2 : spaced.tracks.size() > 7 ? 5 : 10;
    for (Track& track : spaced.tracks) track.divisions = std::min(track.divisions, divisions);
    return spaced;
}

double fullSpeed(std::string_view unit) {
    return upperCase(unit).starts_with("FT") ? 100 : 30;
}

ScaleKind gridKind(const Track& track) {
    const auto curves = shownCurves(track);
    const auto chosen = [&](const LogCurve* curve) { return curve->scale.kind == track.grid; };
    if (curves.empty() || std::ranges::any_of(curves, chosen)) return track.grid;
    return curves.front()->scale.kind;
}

CurveScale gridScale(const Track& track) {
    for (const LogCurve* curve : shownCurves(track)) {
        if (curve->scale.kind == ScaleKind::logarithmic && isUsable(curve->scale)) return curve->scale;
    }
    return {ScaleKind::logarithmic, 0.2, 2000};
}

Colour colourOf(const LogCurve& curve, const Scheme& scheme) {
    return curve.style.ownColour.value_or(scheme.ink(curve.style.ink));
}

} // namespace tarvik
