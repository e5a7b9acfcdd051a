// Where the tracks of a display stand side by side.
#pragma once

#include "display/display_view.h"
#include "display/log_display.h"

#include <vector>

namespace tarvik {

struct Column {
    double left = 0;
    double width = 0;

    [[nodiscard]] double right() const { return left + width; }
};

/// In painter units; together they are as wide as the view.
struct Columns {
    std::vector<Column> tracks; ///< in the order of the display's tracks
    Column depth;
};

[[nodiscard]] Columns columnsOf(const LogDisplay& display, const DisplayView& view);

/// Room of one curve in a track head, mm.
constexpr double headSlot = 8.5;
/// Height of the track heads in millimetres: the same for all, by the track with the most curves.
[[nodiscard]] double headMillimetres(const LogDisplay& display);
/// Without room for the words that say what it means there is no speed bar.
[[nodiscard]] bool showsSpeedBar(const LogDisplay& display);

} // namespace tarvik
