// One curve in its track, from the trace that the display model makes of it.
#pragma once

#include "display/curve_trace.h"
#include "drawing/canvas.h"

namespace tarvik {

// Both draw within the column and the band only, but for half a line at the column's edges; the painter's
// clip is given back as it was.

/// What the curve's style fills, if anything: of all curves of a track before the first line.
void paintFill(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace, const Column& column,
               const Band& band);
/// Line, points and marks of what lies off the scale.
void paintLine(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace, const Column& column,
               const Band& band);

} // namespace tarvik
