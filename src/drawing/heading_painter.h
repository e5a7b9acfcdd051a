// The heading of a printed log.
#pragma once

#include "display/log_heading.h"
#include "drawing/canvas.h"

namespace tarvik {

/// As wide as the canvas's view and headingMillimetres() high, at the painter's origin. Long texts are
/// shortened; they never move anything.
void paintHeading(const Canvas& canvas, const LogHeading& heading);

} // namespace tarvik
