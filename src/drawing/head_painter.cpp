#include "drawing/head_painter.h"

#include "drawing/grid_painter.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QRegularExpression>

#include <algorithm>

namespace tarvik {

namespace {

constexpr double nameLetters = 2.9;
constexpr double endLetters = 2.4;
constexpr double narrowName = 2.6;
constexpr double narrowUnit = 2;

/// Values without a calibration are counts, whatever unit the tool record has: the head says so, as fully as
/// there is room.
QString unitText(const LogCurve& curve, const LogData& data, const QFont& font, double room) {
    if (data.find(curve.channel) == nullptr) return fitted(font, QStringLiteral("not in this log"), room);
    const bool smoothed = curve.filter != "None" && curve.style.line != LineKind::points;
    const std::string filter = smoothed ? ", mean of " + curve.filter : "";
    if (curve.calibrated) return fitted(font, qText(curve.unit + filter), room);
    for (const std::string& text : {"counts, not calibrated" + filter, "not calibrated" + filter,
                                    std::string("not calibrated"), std::string("not cal.")}) {
        if (QFontMetricsF(font).horizontalAdvance(qText(text)) <= room) return qText(text);
    }
    return QStringLiteral("?");
}

QPen samplePen(const Canvas& canvas, const LogCurve& curve) {
    QPen pen = curvePen(canvas, curve);
    if (curve.style.line != LineKind::points) return pen;
    pen.setCapStyle(Qt::RoundCap);
    pen.setDashPattern({0.01, canvas.mm(1.6) / pen.widthF()});
    return pen;
}

struct HeadSlot {
    const Canvas& canvas;
    const LogCurve& curve;
    const LogData& data;
    double left = 0;
    double width = 0;
    double top = 0; ///< upper edge of the slot

    [[nodiscard]] QRectF row(double from, double to) const {
        return {left, top + canvas.mm(from), width, canvas.mm(to - from)};
    }
    [[nodiscard]] QString leftEnd() const { return qText(scaleEndText(curve.scale.left)); }
    [[nodiscard]] QString rightEnd() const { return qText(scaleEndText(curve.scale.right)); }
    void useText() const { canvas.painter.setPen(qColour(canvas.display.scheme.text)); }
    void useCurve() const { canvas.painter.setPen(qColour(colourOf(curve, canvas.display.scheme))); }
    void sample(double from, double to, double y) const {
        canvas.painter.setPen(samplePen(canvas, curve));
        canvas.painter.drawLine(QLineF(from, y, to, y));
    }
};

/// Name; below it the scale's ends, the unit between them and the sample of the line around it. False where
/// there is no room for them side by side.
bool paintWideHead(const HeadSlot& slot) {
    const Canvas& canvas = slot.canvas;
    QPainter& painter = canvas.painter;
    const QFont nameFont = letters(canvas, nameLetters, true);
    const QFont endFont = letters(canvas, endLetters);
    const QFontMetricsF metrics(endFont);
    const double from = slot.left + metrics.horizontalAdvance(slot.leftEnd()) + canvas.mm(1);
    const double to = slot.left + slot.width - metrics.horizontalAdvance(slot.rightEnd()) - canvas.mm(1);
    const double room = to - from - canvas.mm(6);
    const QString whole = unitText(slot.curve, slot.data, endFont, 1e6);
    const QString unit = unitText(slot.curve, slot.data, endFont, std::max(0.0, room));
    const bool fits = slot.curve.calibrated ? unit == whole : unit != QStringLiteral("?");
    if (room < 0 || !fits) return false;
    if (QFontMetricsF(nameFont).horizontalAdvance(qText(slot.curve.channel)) > slot.width) return false;

    painter.setFont(nameFont);
    slot.useCurve();
    painter.drawText(slot.row(0, 4), Qt::AlignCenter, qText(slot.curve.channel));
    const QRectF row = slot.row(4, 8);
    painter.setFont(endFont);
    slot.useText();
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, slot.leftEnd());
    painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, slot.rightEnd());
    const double unitWidth = unit.isEmpty() ? 0 : metrics.horizontalAdvance(unit) + canvas.mm(2);
    const double middle = (from + to) / 2;
    painter.drawText(QRectF(middle - unitWidth / 2, row.top(), unitWidth, row.height()), Qt::AlignCenter,
                     unit);
    const double y = slot.top + canvas.mm(6);
    slot.sample(from, middle - unitWidth / 2, y);
    slot.sample(middle + unitWidth / 2, to, y);
    return true;
}

/// On two lines where one has no room for it: "Res 16 inch" and "Res 64 inch" must not end up alike.
void paintNarrowName(const HeadSlot& slot) {
    const Canvas& canvas = slot.canvas;
    const QString name = qText(slot.curve.channel);
    const QRectF box = slot.row(0.1, 2.9);
    const QFontMetricsF smallest(letters(canvas, smallestLetters(canvas), true));
    static const QRegularExpression gap(QStringLiteral("[ _-]"));
    qsizetype end = name.size();
    while (end > 0 && smallest.horizontalAdvance(name.left(end)) > slot.width)
        end = name.lastIndexOf(gap, end - 1);
    if (end == name.size() || end <= 0)
        return writeFitted(canvas, box, Qt::AlignCenter, name, narrowName, true);
    writeFitted(canvas, slot.row(0, 1.5), Qt::AlignCenter, name.left(end), smallestLetters(canvas), true);
    writeFitted(canvas, slot.row(1.5, 3), Qt::AlignCenter, name.mid(end + 1), smallestLetters(canvas), true);
}

/// Name, unit, sample and ends below each other, in letters that fit.
void paintNarrowHead(const HeadSlot& slot) {
    const Canvas& canvas = slot.canvas;
    slot.useCurve();
    paintNarrowName(slot);
    slot.useText();
    const QFont smallest = letters(canvas, smallestLetters(canvas));
    const QString unit = unitText(slot.curve, slot.data, smallest, slot.width);
    writeFitted(canvas, slot.row(2.9, 4.9), Qt::AlignCenter, unit, narrowUnit);
    slot.sample(slot.left, slot.left + slot.width, slot.top + canvas.mm(5.2));
    slot.useText();
    const QFontMetricsF metrics(smallest);
    const double both =
        metrics.horizontalAdvance(slot.leftEnd()) + metrics.horizontalAdvance(slot.rightEnd());
    if (both + canvas.mm(0.6) <= slot.width) {
        canvas.painter.setFont(smallest);
        canvas.painter.drawText(slot.row(5.5, 8.3), Qt::AlignLeft | Qt::AlignVCenter, slot.leftEnd());
        canvas.painter.drawText(slot.row(5.5, 8.3), Qt::AlignRight | Qt::AlignVCenter, slot.rightEnd());
        return;
    }
    // One below the other, each on its own side.
    writeFitted(canvas, slot.row(5.4, 6.9), Qt::AlignLeft | Qt::AlignVCenter, slot.leftEnd(), 1.5);
    writeFitted(canvas, slot.row(6.9, 8.4), Qt::AlignRight | Qt::AlignVCenter, slot.rightEnd(), 1.5);
}

/// Slots are filled from the body upwards, as on paper.
void paintCurveHead(const Canvas& canvas, const LogCurve& curve, const LogData& data, const Column& column,
                    double top) {
    const double margin = canvas.mm(1.2);
    if (paintWideHead({canvas, curve, data, column.left + margin, column.width - 2 * margin, top})) return;
    const double least = std::min(canvas.mm(0.5), column.width / 8);
    paintNarrowHead({canvas, curve, data, column.left + least, column.width - 2 * least, top});
}

/// An index in another unit than metres or feet may be anything: a time, a sample number.
QString indexName(const Canvas& canvas, const LogData& data) {
    if (canvas.view.axis == Axis::time) return QStringLiteral("Time");
    return data.otherUnit.empty() ? QStringLiteral("Depth") : QStringLiteral("Index");
}

void paintDepthHead(const Canvas& canvas, const LogData& data, double height) {
    const Column& column = canvas.columns.depth;
    canvas.painter.setPen(qColour(canvas.display.scheme.text));
    writeFitted(canvas, QRectF(column.left, height - canvas.mm(headSlot + 1), column.width, canvas.mm(4)),
                Qt::AlignCenter, indexName(canvas, data), nameLetters, true);
    const auto unit = [&](double left, double width, std::string_view text) {
        writeFitted(canvas, QRectF(left, height - canvas.mm(5), width, canvas.mm(4)), Qt::AlignCenter,
                    qText(text), endLetters);
    };
    const DepthNumbers numbers = canvas.display.depthTrack.numbers;
    if (canvas.view.axis == Axis::time) {
        unit(column.left, column.width, "min:s");
    } else if (!data.otherUnit.empty()) {
        unit(column.left, column.width, data.otherUnit);
    } else if (numbers == DepthNumbers::both) {
        unit(column.left, column.width / 2, "m");
        unit(column.left + column.width / 2, column.width / 2, "ft");
    } else {
        unit(column.left, column.width, numbers == DepthNumbers::metres ? "metres" : "feet");
    }
    const ChannelData* speed = data.find(speedCurve);
    if (speed == nullptr || !showsSpeedBar(canvas.display)) return;
    canvas.painter.setFont(letters(canvas, 2));
    canvas.painter.setPen(qColour(canvas.display.scheme.quietText));
    const QString ends =
        qText("Speed 0\u2013" + scaleEndText(fullSpeed(speed->unit)) + "\n" + std::string(speed->unit));
    canvas.painter.drawText(QRectF(column.left, canvas.mm(1.2), column.width, canvas.mm(6)),
                            Qt::AlignHCenter | Qt::AlignTop, ends);
}

} // namespace

void paintTrackHeads(const Canvas& canvas, const LogData& data, double height) {
    QPainter& painter = canvas.painter;
    const Scheme& scheme = canvas.display.scheme;
    painter.fillRect(QRectF(0, 0, canvas.view.width, height), qColour(scheme.head));
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (std::size_t i = 0; i < canvas.columns.tracks.size(); ++i) {
        const auto curves = shownCurves(canvas.display.tracks[i]);
        double top = height - canvas.mm(1) - canvas.mm(headSlot) * static_cast<double>(curves.size());
        for (const LogCurve* curve : curves) {
            paintCurveHead(canvas, *curve, data, canvas.columns.tracks[i], top);
            top += canvas.mm(headSlot);
        }
    }
    paintDepthHead(canvas, data, height);
    painter.setRenderHint(QPainter::Antialiasing, canvas.view.vectors);
    paintBorders(canvas, {0, height});
    const double inset = canvas.view.vectors ? 0 : 0.5;
    painter.setPen(line(canvas, scheme.frame, 0.2));
    painter.drawLine(QLineF(0, inset, canvas.view.width, inset));
    painter.drawLine(QLineF(0, height - inset, canvas.view.width, height - inset));
}

} // namespace tarvik
