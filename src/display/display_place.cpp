#include "display/display_place.h"

#include "display/columns.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvik {

namespace {

/// The shown curves in the order in which equallySpaced() gives each its track.
std::vector<DisplayPlace> shownPlaces(const LogDisplay& display) {
    std::vector<DisplayPlace> places;
    for (std::size_t track = 0; track < display.tracks.size(); ++track) {
        const auto& curves = display.tracks[track].curves;
        for (std::size_t curve = 0; curve < curves.size(); ++curve) {
            if (curves[curve].shown) places.push_back({DisplayPlace::Part::curve, track, curve});
        }
    }
    return places;
}

bool holds(const Column& column, double x) {
    return x >= column.left && x < column.right();
}

/// Which of the track's slots; nothing above the uppermost.
DisplayPlace inHead(const LogDisplay& display, const DisplayView& view, std::size_t track, double fromBody) {
    std::vector<DisplayPlace> curves = shownPlaces(display);
    std::erase_if(curves, [track](const DisplayPlace& place) { return place.track != track; });
    const double slot = view.millimetres(headSlot);
    const auto fromBelow = static_cast<std::size_t>(std::max(0.0, (fromBody - view.millimetres(1)) / slot));
    if (fromBelow >= curves.size()) return {DisplayPlace::Part::track, track, 0};
    return curves[curves.size() - 1 - fromBelow];
}

} // namespace

DisplayPlace placeAt(const LogDisplay& display, const DisplayView& view, double x, double y) {
    const LogDisplay laidOut = view.equallySpaced ? equallySpaced(display) : display;
    const Columns columns = columnsOf(laidOut, view);
    if (x < 0 || y < 0) return {};
    if (holds(columns.depth, x)) return {DisplayPlace::Part::depthTrack, 0, 0};
    const auto column =
        std::ranges::find_if(columns.tracks, [x](const Column& each) { return holds(each, x); });
    if (column == columns.tracks.end()) return {};
    const auto track = static_cast<std::size_t>(column - columns.tracks.begin());
    if (view.equallySpaced) return shownPlaces(display)[track];
    const double head = std::ceil(view.millimetres(headMillimetres(laidOut)));
    if (y < head) return inHead(display, view, track, head - y);
    return {DisplayPlace::Part::track, track, 0};
}

} // namespace tarvik
