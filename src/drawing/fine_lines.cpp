#include "drawing/fine_lines.h"

#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvik {

namespace {

constexpr double mostPixels = 5; // from there on the toolkit's own way costs no more

/// Cuts a line into its dashes; a line without dashes passes whole.
class Dashes {
  public:
    explicit Dashes(const QPen& pen) {
        for (const qreal length : pen.dashPattern()) lengths_.push_back(length * pen.widthF());
        if (!lengths_.empty()) left_ = lengths_.front();
    }

    /// The parts of the next segment that are drawn, in order.
    template <class Visit>
    void cut(const QLineF& segment, Visit&& visit) {
        if (lengths_.empty()) return visit(segment);
        const double length = segment.length();
        double at = 0;
        while (length - at > left_) {
            pass(segment, at / length, (at + left_) / length, visit);
            at += left_;
            current_ = (current_ + 1) % lengths_.size();
            left_ = lengths_[current_];
        }
        if (length > at) pass(segment, at / length, 1, visit);
        left_ -= length - at;
    }

  private:
    template <class Visit>
    void pass(const QLineF& segment, double from, double to, Visit&& visit) const {
        if (current_ % 2 == 0) visit(QLineF(segment.pointAt(from), segment.pointAt(to)));
    }

    std::vector<double> lengths_; ///< drawn and left out by turns, in painter units
    std::size_t current_ = 0;
    double left_ = 0;
};

/// Side by side along the shorter side of the line: there a hairline is one pixel thick, whatever its slope.
class Bundle {
  public:
    Bundle(double pixels, double ratio) : pixels_(pixels), ratio_(ratio) {}

    void add(const QLineF& line) {
        const double across = std::abs(line.dx());
        const double along = std::abs(line.dy());
        const double longer = std::max(across, along);
        if (longer <= 0) return;
        const double thickness = pixels_ * std::sqrt(across * across + along * along) / longer;
        const int hairs = std::max(1, static_cast<int>(std::ceil(thickness - 0.1)));
        const double apart = hairs == 1 ? 0 : (thickness - 1) / (hairs - 1) / ratio_;
        const QPointF aside = across < along ? QPointF(apart, 0) : QPointF(0, apart);
        for (int i = 0; i < hairs; ++i) lines_.append(line.translated(aside * (i - (hairs - 1) / 2.0)));
    }
    [[nodiscard]] const QList<QLineF>& lines() const { return lines_; }

  private:
    double pixels_;
    double ratio_;
    QList<QLineF> lines_;
};

} // namespace

void drawFineLine(QPainter& painter, const QPolygonF& run) {
    const QPen pen = painter.pen();
    const double ratio = painter.device()->devicePixelRatioF();
    const double pixels = pen.widthF() * ratio;
    if (pixels < 1.2 || pixels > mostPixels) return painter.drawPolyline(run);

    Bundle bundle(pixels, ratio);
    Dashes dashes(pen);
    for (qsizetype i = 1; i < run.size(); ++i)
        dashes.cut(QLineF(run[i - 1], run[i]), [&](const QLineF& part) { bundle.add(part); });
    QPen hair(pen.color(), 1);
    hair.setCosmetic(true);
    hair.setCapStyle(Qt::SquareCap); // covers the corner that two lines leave between them
    painter.setPen(hair);
    painter.drawLines(bundle.lines());
    painter.setPen(pen);
}

} // namespace tarvik
