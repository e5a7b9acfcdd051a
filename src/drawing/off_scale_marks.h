// Arrowheads at the edge of a track beside a curve that lies off it: there are values, and on that side.
#pragma once

#include "display/curve_trace.h"
#include "drawing/canvas.h"

namespace tarvik {

/// Where the curve lies outside `shown`, in widths of the track from its left edge; every few millimetres
/// along the log, at places that do not move with what is in sight.
void paintOffScaleMarks(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace,
                        const Column& column, const ScalePair& shown);

} // namespace tarvik
