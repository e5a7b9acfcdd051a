// The plan view of a deviated hole.
#pragma once

#include "display/bullseye.h"

#include <QPainter>

namespace tarvik {

/// Into the box, both axes at one scale, whatever its shape. `unitsPerMillimetre` is that of letters and
/// lines.
void paintBullseye(QPainter& painter, const Bullseye& plan, const Scheme& scheme, const QRectF& box,
                   double unitsPerMillimetre);

} // namespace tarvik
