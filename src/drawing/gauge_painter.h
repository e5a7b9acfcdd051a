// The gauges of the fluid samplers.
#pragma once

#include "display/gauges.h"

#include <QPainter>

#include <span>

namespace tarvik {

/// All of them side by side in the box, as large as it allows.
void paintGauges(QPainter& painter, std::span<const Gauge> gauges, const Scheme& scheme, const QRectF& box,
                 double unitsPerMillimetre);

} // namespace tarvik
