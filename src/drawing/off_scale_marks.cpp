#include "drawing/off_scale_marks.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double every = 8;       // mm along the log
constexpr double length = 1.7;    // mm, of an arrowhead
constexpr double halfWidth = 1.0; // mm

class Marks {
  public:
    Marks(const Canvas& canvas, const Column& column, const ScalePair& shown)
        : canvas_(canvas),
          column_(column),
          shown_(shown),
          spacing_(canvas.mm(every)),
          above_(canvas.view.top * canvas.view.unitsPer()) {}

    /// The curve between two heights; `from` and `to` are its fractions there. Its points may lie kilometres
    /// above and below what is in sight.
    void along(double top, double bottom, double from, double to) const {
        const double first = std::max(top, -spacing_);
        const double last = std::min(bottom, canvas_.view.height + spacing_);
        for (double k = std::ceil((first + above_) / spacing_); k * spacing_ - above_ < last; ++k) {
            const double y = k * spacing_ - above_;
            const double fraction = from + (to - from) * (y - top) / (bottom - top);
            if (fraction < shown_.left) paint(column_.left, y, 1);
            if (fraction > shown_.right) paint(column_.left + column_.width, y, -1);
        }
    }
    /// All of the curve's values in a row of pixels.
    void row(double top, double bottom, double least, double most) const {
        if (most < shown_.left) along(top, bottom, most, most);
        if (least > shown_.right) along(top, bottom, least, least);
    }

  private:
    /// Its point on the edge; `inwards` is 1 at the left edge, -1 at the right one.
    void paint(double edge, double y, int inwards) const {
        const double base = edge + inwards * canvas_.mm(length);
        const QPointF corners[]{
            {edge, y}, {base, y - canvas_.mm(halfWidth)}, {base, y + canvas_.mm(halfWidth)}};
        canvas_.painter.drawConvexPolygon(corners, 3);
    }

    const Canvas& canvas_;
    const Column& column_;
    ScalePair shown_;
    double spacing_;
    double above_; ///< height of the log above what is in sight
};

} // namespace

void paintOffScaleMarks(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace,
                        const Column& column, const ScalePair& shown) {
    canvas.painter.setRenderHint(QPainter::Antialiasing, true);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(qColour(colourOf(curve, canvas.display.scheme)));
    const Marks marks(canvas, column, shown);
    for (std::size_t i = 1; i < trace.points.size(); ++i) {
        if (std::ranges::binary_search(trace.pieces, i)) continue; // a gap lies between the two
        const auto [above, below] =
            std::ranges::minmax(trace.points[i - 1], trace.points[i], {}, &TracePoint::y);
        if (below.y > above.y) marks.along(above.y, below.y, above.fraction, below.fraction);
    }
    const double height = canvas.view.rowHeight;
    for (const RowSpan& span : trace.rows) {
        const double top = static_cast<double>(span.row) * height;
        marks.row(top, top + height, span.from, span.to);
    }
    canvas.painter.setBrush(Qt::NoBrush);
}

} // namespace tarvik
