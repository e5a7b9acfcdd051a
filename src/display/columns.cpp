#include "display/columns.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

Columns columnsOf(const LogDisplay& display, const DisplayView& view) {
    double total = display.depthTrack.width;
    for (const Track& track : display.tracks) total += track.width;
    const double stretch = total > 0 ? view.width / total : 0;
    Columns columns;
    double shares = 0;
    // Borders on whole units: a border between two pixels would be a grey smear.
    const auto next = [&](double width) {
        const double left = std::round(shares * stretch);
        shares += width;
        return Column{left, std::round(shares * stretch) - left};
    };
    for (std::size_t i = 0; i < display.tracks.size(); ++i) {
        if (i == display.depthPlace) columns.depth = next(display.depthTrack.width);
        columns.tracks.push_back(next(display.tracks[i].width));
    }
    if (display.depthPlace >= display.tracks.size()) columns.depth = next(display.depthTrack.width);
    return columns;
}

double headMillimetres(const LogDisplay& display) {
    std::size_t most = 1;
    for (const Track& track : display.tracks) most = std::max(most, shownCurves(track).size());
    return static_cast<double>(most) * headSlot + 2;
}

} // namespace tarvik
