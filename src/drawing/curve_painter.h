// One curve in its track, from the trace that the display model makes of it.
#pragma once

#include "display/curve_trace.h"
#include "drawing/canvas.h"

namespace tarvik {

/// Draws within the column and the band only; the painter's clip is given back as it was.
void paintCurve(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace, const Column& column,
                const Band& band);

} // namespace tarvik
