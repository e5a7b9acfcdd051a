// The heads of the tracks: name, unit, the two ends of the scale and a sample of the curve between them.
#pragma once

#include "drawing/canvas.h"

namespace tarvik {

/// In [0, height); the painter's origin is the upper left corner of the head.
void paintTrackHeads(const Canvas& canvas, DepthUnits units, double height);

} // namespace tarvik
