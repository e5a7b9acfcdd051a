// What of a display stands at a point of its picture: for the pointer.
#pragma once

#include "display/display_view.h"
#include "display/log_display.h"

#include <cstddef>

namespace tarvik {

struct DisplayPlace {
    enum class Part { nothing, curve, track, depthTrack };
    Part part = Part::nothing;
    std::size_t track = 0; ///< of the display's tracks, also where the view shows them equally spaced
    std::size_t curve = 0; ///< of the track's curves, hidden ones counted

    friend bool operator==(const DisplayPlace&, const DisplayPlace&) = default;
};

/// `x` and `y` in painter units from the upper left corner of the track heads. A curve stands in its head;
/// where the view is equally spaced, in the body of its track as well.
[[nodiscard]] DisplayPlace placeAt(const LogDisplay& display, const DisplayView& view, double x, double y);

} // namespace tarvik
