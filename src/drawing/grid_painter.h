// The ground of the tracks: grids across and along, track borders, the depth track with its numbers.
#pragma once

#include "display/curve_trace.h"
#include "drawing/canvas.h"

namespace tarvik {

/// Everything behind the curves, within the band; the painter's origin is the upper left corner of the body.
void paintGrid(const Canvas& canvas, DepthUnits units, const Band& band);

/// The sides of the tracks, of the body as of the heads.
void paintBorders(const Canvas& canvas, const Band& band);

/// Depth or time numbers, over the curves' level; numbers half in the band are drawn whole.
void paintDepthTrack(const Canvas& canvas, const LogData& data, const Band& band);

/// What casing, fluid level and notes say, below the level of the curves; and their lines, above it.
void paintMarkTexts(const Canvas& canvas, const Band& band);
void paintMarkLines(const Canvas& canvas, const Band& band);

} // namespace tarvik
