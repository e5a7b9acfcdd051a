#include "drawing/canvas.h"

#include <QFontMetricsF>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace tarvik {

QColor qColour(const Colour& colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

QString qText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QFont lettersOf(double painterUnits, bool bold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(painterUnits))));
    font.setBold(bold);
    return font;
}

QFont letters(const Canvas& canvas, double millimetres, bool bold) {
    return lettersOf(canvas.mm(millimetres), bold);
}

QFont lettersFor(const Canvas& canvas, const QString& text, double width, double millimetres, bool bold) {
    const QFont usual = letters(canvas, millimetres, bold);
    const double wanted = QFontMetricsF(usual).horizontalAdvance(text);
    if (wanted <= width || wanted <= 0) return usual;
    return lettersOf(std::floor(canvas.mm(millimetres) * std::max(0.0, width) / wanted), bold);
}

QPen line(const Canvas& canvas, const Colour& colour, double millimetres) {
    QPen pen(qColour(colour));
    const double width = std::max(1.0, canvas.mm(millimetres));
    // Of the toolkit's lines on a screen those of one pixel are many times quicker than any wider ones.
    pen.setWidthF(!canvas.view.vectors && width < 1.4 ? 1 : width);
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

QPen curvePen(const Canvas& canvas, const LogCurve& curve) {
    QPen pen = line(canvas, colourOf(curve, canvas.display.scheme), curve.style.width);
    pen.setJoinStyle(Qt::RoundJoin);
    // The toolkit counts dashes in widths of the line.
    const double unit = canvas.mm(1) / pen.widthF();
    switch (curve.style.line) {
    case LineKind::dashed:
        pen.setDashPattern({2.2 * unit, 1.1 * unit});
        break;
    case LineKind::dotted:
        pen.setDashPattern({0.5 * unit, 0.8 * unit});
        break;
    case LineKind::dashDot:
        pen.setDashPattern({2.6 * unit, 0.8 * unit, 0.5 * unit, 0.8 * unit});
        break;
    case LineKind::solid:
    case LineKind::points:
        break;
    }
    return pen;
}

QString fitted(const QFont& font, const QString& text, double width) {
    return QFontMetricsF(font).elidedText(text, Qt::ElideRight, width);
}

} // namespace tarvik
