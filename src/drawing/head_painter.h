// The heads of the tracks: name, unit, the two ends of the scale and a sample of the curve between them.
#pragma once

#include "drawing/canvas.h"

namespace tarvik {

/// In [0, height); the painter's origin is the upper left corner of the head.
/// A curve whose channel the data do not have says so.
void paintTrackHeads(const Canvas& canvas, const LogData& data, double height);

} // namespace tarvik
