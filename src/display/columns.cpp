#include "display/columns.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

Columns columnsOf(const LogDisplay& display, const DisplayView& view) {
    double total = 0;
    for (const Track& track : display.tracks) total += track.width;
    // Numbers need no more room on a wider picture; on a narrow one the curves need it more.
    const double depth = std::min(view.millimetres(display.depthTrack.width), view.width / 4);
    const double stretch = total > 0 ? (view.width - depth) / total : 0;
    Columns columns;
    double right = 0;
    // Borders on whole units: a border between two pixels would be a grey smear.
    const auto next = [&](double width) {
        const double left = std::round(right);
        right += width;
        return Column{left, std::round(right) - left};
    };
    for (std::size_t i = 0; i < display.tracks.size(); ++i) {
        if (i == display.depthPlace) columns.depth = next(depth);
        columns.tracks.push_back(next(display.tracks[i].width * stretch));
    }
    if (display.depthPlace >= display.tracks.size()) columns.depth = next(depth);
    return columns;
}

double headMillimetres(const LogDisplay& display) {
    std::size_t most = 1;
    for (const Track& track : display.tracks) most = std::max(most, shownCurves(track).size());
    return static_cast<double>(most) * headSlot + 2;
}

bool showsSpeedBar(const LogDisplay& display) {
    return display.depthTrack.speedBar && headMillimetres(display) >= 2 * headSlot;
}

} // namespace tarvik
