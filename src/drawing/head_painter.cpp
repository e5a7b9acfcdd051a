#include "drawing/head_painter.h"

#include "drawing/grid_painter.h"

#include <QFontMetricsF>
#include <QLineF>

namespace tarvik {

namespace {

constexpr double nameLetters = 2.9;
constexpr double endLetters = 2.4;

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

/// Upper edge of the slot; slots are filled from the body upwards, as on paper.
void paintCurveHead(const Canvas& canvas, const LogCurve& curve, const LogData& data, const Column& column,
                    double top) {
    QPainter& painter = canvas.painter;
    const Scheme& scheme = canvas.display.scheme;
    const double margin = canvas.mm(1.2);
    const double left = column.left + margin;
    const double width = column.width - 2 * margin;

    const QFont nameFont = letters(canvas, nameLetters, true);
    painter.setFont(nameFont);
    painter.setPen(qColour(colourOf(curve, scheme)));
    painter.drawText(QRectF(left, top, width, canvas.mm(4)), Qt::AlignCenter,
                     fitted(nameFont, qText(curve.channel), width));

    const QFont endFont = letters(canvas, endLetters);
    const QFontMetricsF metrics(endFont);
    const double line = top + canvas.mm(6);
    const QRectF row(left, line - canvas.mm(2), width, canvas.mm(4));
    const QString leftEnd = qText(scaleEndText(curve.scale.left));
    const QString rightEnd = qText(scaleEndText(curve.scale.right));
    painter.setFont(endFont);
    painter.setPen(qColour(scheme.text));
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, leftEnd);
    painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, rightEnd);

    const double from = left + metrics.horizontalAdvance(leftEnd) + canvas.mm(1);
    const double to = left + width - metrics.horizontalAdvance(rightEnd) - canvas.mm(1);
    const QString unit = unitText(curve, data, endFont, std::max(0.0, to - from - canvas.mm(6)));
    const double unitWidth = unit.isEmpty() ? 0 : metrics.horizontalAdvance(unit) + canvas.mm(2);
    const double middle = (from + to) / 2;
    painter.drawText(QRectF(middle - unitWidth / 2, row.top(), unitWidth, row.height()), Qt::AlignCenter,
                     unit);
    painter.setPen(samplePen(canvas, curve));
    painter.drawLine(QLineF(from, line, middle - unitWidth / 2, line));
    painter.drawLine(QLineF(middle + unitWidth / 2, line, to, line));
}

/// An index in another unit than metres or feet may be anything: a time, a sample number.
QString indexName(const Canvas& canvas, const LogData& data) {
    if (canvas.view.axis == Axis::time) return QStringLiteral("Time");
    return data.otherUnit.empty() ? QStringLiteral("Depth") : QStringLiteral("Index");
}

void paintDepthHead(const Canvas& canvas, const LogData& data, double height) {
    const Column& column = canvas.columns.depth;
    canvas.painter.setPen(qColour(canvas.display.scheme.text));
    canvas.painter.setFont(letters(canvas, nameLetters, true));
    canvas.painter.drawText(QRectF(column.left, height - canvas.mm(headSlot + 1), column.width, canvas.mm(4)),
                            Qt::AlignCenter, indexName(canvas, data));
    canvas.painter.setFont(letters(canvas, endLetters));
    const auto unit = [&](double left, double width, std::string_view text) {
        canvas.painter.drawText(QRectF(left, height - canvas.mm(5), width, canvas.mm(4)), Qt::AlignCenter,
                                qText(text));
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
    if (speed == nullptr || !canvas.display.depthTrack.speedBar || height < canvas.mm(2 * headSlot)) return;
    canvas.painter.setFont(letters(canvas, 2));
    canvas.painter.setPen(qColour(canvas.display.scheme.quietText));
    const QString ends = qText("Speed 0\u2013" + scaleEndText(fullSpeed) + "\n" + std::string(speed->unit));
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
