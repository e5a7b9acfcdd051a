#include "drawing/bullseye_painter.h"

#include "base/number_picture.h"
#include "display/curve_scale.h"
#include "drawing/canvas.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarvik {

namespace {

struct PlanCanvas {
    QPainter& painter;
    const Bullseye& plan;
    const Scheme& scheme;
    double millimetre;
    QPointF centre;
    double radius;

    [[nodiscard]] QPointF at(const PlanPoint& point) const {
        const double metre = radius / plan.reach();
        return {centre.x() + point.east * metre, centre.y() - point.north * metre};
    }
    void pen(const Colour& colour, double millimetres) const {
        QPen pen(qColour(colour));
        pen.setWidthF(std::max(1.0, millimetres * millimetre));
        pen.setJoinStyle(Qt::RoundJoin);
        painter.setPen(pen);
    }
    void write(const QRectF& box, int alignment, double size, bool bold, const Colour& colour,
               const std::string& text) const {
        painter.setFont(lettersOf(size * millimetre, bold));
        painter.setPen(qColour(colour));
        painter.drawText(box, alignment, qText(text));
    }
};

void paintRings(const PlanCanvas& on) {
    on.painter.setBrush(Qt::NoBrush);
    for (int ring = on.plan.rings; ring > 0; --ring) {
        const double radius = on.radius * ring / on.plan.rings;
        on.pen(ring == on.plan.rings ? on.scheme.frame : on.scheme.gridHeavy,
               ring == on.plan.rings ? 0.3 : 0.15);
        on.painter.drawEllipse(on.centre, radius, radius);
    }
    on.pen(on.scheme.gridMedium, 0.15);
    for (int angle = 0; angle < 360; angle += 30) {
        const double radians = angle * std::numbers::pi / 180;
        const QPointF away(std::sin(radians), -std::cos(radians));
        const double from = angle % 90 == 0 ? 0 : on.radius / on.plan.rings;
        on.painter.drawLine(on.centre + away * from, on.centre + away * on.radius);
    }
}

void paintLetters(const PlanCanvas& on) {
    const double size = 8 * on.millimetre;
    const double out = on.radius + 3.6 * on.millimetre;
    const auto place = [&](double x, double y) {
        return QRectF(on.centre.x() + x * out - size / 2, on.centre.y() + y * out - size / 2, size, size);
    };
    on.write(place(0, -1), Qt::AlignCenter, 4.4, true, on.scheme.text, "N");
    on.write(place(1, 0), Qt::AlignCenter, 3.2, false, on.scheme.quietText, "E");
    on.write(place(0, 1), Qt::AlignCenter, 3.2, false, on.scheme.quietText, "S");
    on.write(place(-1, 0), Qt::AlignCenter, 3.2, false, on.scheme.quietText, "W");
    // Ring labels to the north-east, where two axes leave room, each on a patch of the ground.
    const double slant = std::numbers::sqrt2 / 2;
    const QFontMetricsF metrics(lettersOf(2.5 * on.millimetre));
    for (int ring = 1; ring <= on.plan.rings; ++ring) {
        const double radius = on.radius * ring / on.plan.rings;
        const std::string text = scaleEndText(on.plan.ringStep * ring) + (ring == on.plan.rings ? " m" : "");
        const double width = metrics.horizontalAdvance(qText(text)) + on.millimetre;
        const QRectF box(on.centre.x() + radius * slant - width / 2,
                         on.centre.y() - radius * slant - 1.6 * on.millimetre, width, 3.2 * on.millimetre);
        on.painter.fillRect(box, qColour(on.scheme.surface));
        on.write(box, Qt::AlignCenter, 2.5, false, on.scheme.quietText, text);
    }
}

void paintWay(const PlanCanvas& on) {
    QPolygonF way;
    way.reserve(static_cast<qsizetype>(on.plan.way.size()));
    for (const PlanPoint& point : on.plan.way) way.append(on.at(point));
    on.pen(on.scheme.ink(Ink::blue), 0.5);
    on.painter.drawPolyline(way);
    const double start = 1.1 * on.millimetre;
    on.pen(on.scheme.text, 0.3);
    on.painter.drawLine(QLineF(on.centre.x() - start, on.centre.y(), on.centre.x() + start, on.centre.y()));
    on.painter.drawLine(QLineF(on.centre.x(), on.centre.y() - start, on.centre.x(), on.centre.y() + start));
    if (!on.plan.current) return;
    on.pen(on.scheme.surface, 0.4);
    on.painter.setBrush(qColour(on.scheme.ink(Ink::vermilion)));
    on.painter.drawEllipse(on.at(*on.plan.current), 1.5 * on.millimetre, 1.5 * on.millimetre);
    on.painter.setBrush(Qt::NoBrush);
}

std::string metres(double value, const char* positive, const char* negative) {
    return formatPicture(std::abs(value), "0.00") + " m " + (value < 0 ? negative : positive);
}

void paintFigures(const PlanCanvas& on, const QRectF& box) {
    std::vector<std::pair<std::string, std::string>> figures;
    if (on.plan.current) {
        const PlanPoint& now = *on.plan.current;
        figures.emplace_back("Displacement",
                             metres(now.east, "E", "W") + "   " + metres(now.north, "N", "S"));
        figures.emplace_back("Distance", formatPicture(std::hypot(now.east, now.north), "0.00") + " m");
    }
    if (!on.plan.summed) figures.emplace_back("Displacement", "none is summed by time");
    const char* note = on.plan.calibrated ? "\u00b0" : " counts, not calibrated";
    if (on.plan.azimuth) figures.emplace_back("Azimuth", formatPicture(*on.plan.azimuth, "0.0") + note);
    if (on.plan.inclination) {
        figures.emplace_back("Inclination", formatPicture(*on.plan.inclination, "0.0") + note);
    }
    if (figures.empty()) figures.emplace_back("No east and north values yet", "");
    double y = box.top() + 2 * on.millimetre;
    for (const auto& [label, value] : figures) {
        const QRectF row(box.left() + 3 * on.millimetre, y, box.width() - 6 * on.millimetre,
                         3.4 * on.millimetre);
        on.write(row, Qt::AlignLeft | Qt::AlignVCenter, 2.4, false, on.scheme.quietText, label);
        on.write(row.translated(0, 3.4 * on.millimetre), Qt::AlignLeft | Qt::AlignVCenter, 3, true,
                 on.scheme.text, value);
        y += 8.4 * on.millimetre;
    }
}

} // namespace

void paintBullseye(QPainter& painter, const Bullseye& plan, const Scheme& scheme, const QRectF& box,
                   double unitsPerMillimetre) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.fillRect(box, qColour(scheme.surface));
    const double margin = 8 * unitsPerMillimetre;
    const double figures = 40 * unitsPerMillimetre;
    // The figures stand beside the rings where the box is wide enough, else in the corner of a square one.
    const bool beside = box.width() >= box.height() + figures * 0.6;
    const double side = std::min(beside ? box.width() - figures : box.width(), box.height());
    const double radius = std::max(unitsPerMillimetre, side / 2 - margin);
    const QPointF centre((beside ? box.left() + figures + (box.width() - figures) / 2 : box.center().x()),
                         box.center().y());
    const PlanCanvas on{painter, plan, scheme, unitsPerMillimetre, centre, radius};
    paintRings(on);
    paintLetters(on);
    paintWay(on);
    paintFigures(on, box);
    painter.restore();
}

} // namespace tarvik
