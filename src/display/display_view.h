// Which part of a log is shown, at what scale, on how large an area. One painter unit is a pixel of a window
// or a dot of a printer; how many of them make a millimetre is all that tells the two apart.
#pragma once

#include "display/log_data.h"

namespace tarvik {

constexpr double millimetresPerInch = 25.4;

struct DisplayView {
    Axis axis = Axis::depth;
    double top = 0;            ///< metres (or seconds) at the upper edge of the body
    double perMillimetre = .2; ///< metres (or seconds) that one millimetre stands for; 1:200 is 0.2
    double unitsPerMillimetre = 96 / millimetresPerInch;
    double width = 0;  ///< of head and body, painter units
    double height = 0; ///< of both together
    bool equallySpaced = false;
    double rowHeight = 1; ///< painter units that are told apart down the log
    bool vectors = false; ///< the drawing keeps lines as lines, as PDF and SVG do
    bool whole = false;   ///< drawn anew whenever it moves: a number that an edge would cut is left out
    bool paper = false;   ///< drawn once, for good: fine lines whatever they cost, no number cut at an edge

    [[nodiscard]] double millimetres(double length) const { return length * unitsPerMillimetre; }
    /// Painter units per metre (or second).
    [[nodiscard]] double unitsPer() const { return unitsPerMillimetre / perMillimetre; }
    /// Below the upper edge of the body, in painter units; and back.
    [[nodiscard]] double yOf(double position) const { return (position - top) * unitsPer(); }
    [[nodiscard]] double positionAt(double y) const { return top + y / unitsPer(); }
};

/// Metres that a millimetre stands for at 1:`scale`; by time seconds, at 1:200 one: the list of scales serves
/// both.
[[nodiscard]] constexpr double perMillimetreAt(double scale, Axis axis) {
    return axis == Axis::depth ? scale / 1000 : scale / 200;
}
[[nodiscard]] constexpr double scaleOf(const DisplayView& view) {
    return view.perMillimetre / perMillimetreAt(1, view.axis);
}

[[nodiscard]] inline DisplayView viewAtScale(double scale, double dotsPerInch, Axis axis = Axis::depth) {
    DisplayView view;
    view.axis = axis;
    view.perMillimetre = perMillimetreAt(scale, axis);
    view.unitsPerMillimetre = dotsPerInch / millimetresPerInch;
    return view;
}

} // namespace tarvik
