#include "drawing/gauge_painter.h"

#include "drawing/canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarvik {

namespace {

constexpr double startAngle = 225; // degrees from three o'clock, anticlockwise: lower left
constexpr double sweep = 270;
constexpr int dialTicks = 10;

struct GaugeCanvas {
    QPainter& painter;
    const Gauge& gauge;
    const Scheme& scheme;
    double millimetre;

    void pen(const Colour& colour, double width, Qt::PenCapStyle cap = Qt::FlatCap) const {
        QPen pen(qColour(colour));
        pen.setWidthF(std::max(1.0, width));
        pen.setCapStyle(cap);
        painter.setPen(pen);
    }
    void write(const QRectF& box, double size, bool bold, const Colour& colour, const QString& text,
               Qt::Alignment side = Qt::AlignHCenter) const {
        const QFont font = lettersOf(size, bold);
        painter.setFont(font);
        painter.setPen(qColour(colour));
        painter.drawText(box, side | Qt::AlignVCenter, fitted(font, text, box.width()));
    }
    [[nodiscard]] Colour ink() const {
        return gauge.offScale() ? scheme.ink(Ink::vermilion) : scheme.ink(Ink::blue);
    }
    [[nodiscard]] QString unit() const {
        if (gauge.offScale()) return QStringLiteral("off scale");
        return gauge.calibrated ? qText(gauge.unit) : QStringLiteral("not calibrated");
    }
};

QPointF around(const QPointF& centre, double radius, double fraction) {
    const double radians = (startAngle - sweep * fraction) * std::numbers::pi / 180;
    return {centre.x() + radius * std::cos(radians), centre.y() - radius * std::sin(radians)};
}

void paintArc(const GaugeCanvas& on, const QPointF& centre, double radius, double fraction) {
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    on.painter.drawArc(circle, static_cast<int>(startAngle * 16), static_cast<int>(-sweep * fraction * 16));
}

void paintDial(const GaugeCanvas& on, const QRectF& box) {
    const double radius = std::min(box.width(), box.height()) / 2 * 0.84;
    const QPointF centre(box.center().x(), box.center().y() + radius * 0.1);
    const double band = radius * 0.13;
    on.pen(on.scheme.gridMedium, band);
    paintArc(on, centre, radius - band / 2, 1);
    on.pen(on.ink(), band);
    if (on.gauge.value) paintArc(on, centre, radius - band / 2, on.gauge.fraction());
    on.pen(on.scheme.quietText, 0.2 * on.millimetre);
    for (int i = 0; i <= dialTicks; ++i) {
        const double fraction = static_cast<double>(i) / dialTicks;
        const double inner = i % 5 == 0 ? 0.74 : 0.79;
        on.painter.drawLine(around(centre, radius * 0.84, fraction),
                            around(centre, radius * inner, fraction));
    }
    const double size = radius * 0.36;
    on.write(QRectF(centre.x() - radius * 0.72, centre.y() - size * 0.75, radius * 1.44, size * 1.3), size,
             true, on.scheme.text, qText(gaugeText(on.gauge)));
    on.write(QRectF(centre.x() - radius * 0.7, centre.y() + size * 0.6, radius * 1.4, size * 0.8),
             radius * 0.14, false, on.scheme.quietText, on.unit());
    const double ends = radius * 0.13;
    const QRectF left(centre.x() - radius, centre.y() + radius * 0.76, radius * 0.8, ends * 1.5);
    on.write(left, ends, false, on.scheme.quietText, qText(scaleEndText(on.gauge.scale.left)));
    on.write(left.translated(radius * 1.2, 0), ends, false, on.scheme.quietText,
             qText(scaleEndText(on.gauge.scale.right)));
}

void paintChamber(const GaugeCanvas& on, const QRectF& box) {
    const double height = box.height() * 0.68;
    const double width = std::min(box.width() * 0.34, height * 0.5);
    const QRectF chamber(box.center().x() - width / 2, box.top() + box.height() * 0.04, width, height);
    const double fill = height * on.gauge.fraction();
    on.painter.fillRect(QRectF(chamber.left(), chamber.bottom() - fill, width, fill),
                        qColour(blended(on.scheme.surface, on.ink(), 0.55)));
    on.pen(on.scheme.frame, 0.4 * on.millimetre);
    on.painter.drawRect(chamber);
    on.pen(on.scheme.quietText, 0.2 * on.millimetre);
    for (int i = 0; i <= dialTicks; ++i) {
        const double y = chamber.bottom() - height * i / dialTicks;
        const double length = width * (i % 5 == 0 ? 0.2 : 0.12);
        on.painter.drawLine(QLineF(chamber.right(), y, chamber.right() + length, y));
    }
    const double size = std::min(box.width(), box.height()) * 0.13;
    const double ends = size * 0.42;
    const auto writeEnd = [&](double y, double value) {
        const QRectF place(chamber.right() + width * 0.28, y - ends, box.right() - chamber.right(), 2 * ends);
        on.write(place, ends, false, on.scheme.quietText, qText(scaleEndText(value)), Qt::AlignLeft);
    };
    writeEnd(chamber.bottom(), on.gauge.scale.left);
    writeEnd(chamber.top(), on.gauge.scale.right);
    const QRectF figures(box.left(), chamber.bottom() + size * 0.1, box.width(), size * 1.2);
    on.write(figures, size, true, on.scheme.text, qText(gaugeText(on.gauge)));
    on.write(figures.translated(0, size), size * 0.42, false, on.scheme.quietText, on.unit());
}

/// As many as make the gauges largest.
double columnsFor(double count, const QRectF& box) {
    double best = 1;
    double largest = 0;
    for (double columns = 1; columns <= count; ++columns) {
        const double size = std::min(box.width() / columns, box.height() / std::ceil(count / columns));
        if (size > largest) best = columns;
        largest = std::max(largest, size);
    }
    return best;
}

} // namespace

void paintGauges(QPainter& painter, std::span<const Gauge> gauges, const Scheme& scheme, const QRectF& box,
                 double unitsPerMillimetre) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.fillRect(box, qColour(scheme.surface));
    const double title = 6 * unitsPerMillimetre;
    const auto count = static_cast<double>(std::max<std::size_t>(1, gauges.size()));
    const double columns = columnsFor(count, box);
    const double rows = std::ceil(count / columns);
    const double width = box.width() / columns;
    const double height = box.height() / rows;
    double i = 0;
    for (const Gauge& gauge : gauges) {
        const QRectF cell(box.left() + std::fmod(i, columns) * width,
                          box.top() + std::floor(i / columns) * height, width, height);
        const GaugeCanvas on{painter, gauge, scheme, unitsPerMillimetre};
        on.write(QRectF(cell.left(), cell.top() + unitsPerMillimetre, width, title), 3.4 * unitsPerMillimetre,
                 true, scheme.text, qText(gauge.name));
        const QRectF face = cell.adjusted(0, title + unitsPerMillimetre, 0, -unitsPerMillimetre);
        gauge.kind == GaugeKind::chamber ? paintChamber(on, face) : paintDial(on, face);
        i += 1;
    }
    painter.restore();
}

} // namespace tarvik
