// Curves on a screen. The toolkit draws hairlines many times quicker than lines of any other width, so a line
// a few pixels wide is drawn as hairlines side by side. For pictures only: in a drawing that keeps lines as
// lines they would be taken for several curves.
#pragma once

#include <QPainter>
#include <QPolygonF>

namespace tarvik {

/// `run` as drawPolyline draws it with the painter's pen, its dashes counted from the first point.
void drawFineLine(QPainter& painter, const QPolygonF& run);

} // namespace tarvik
