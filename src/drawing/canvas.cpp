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
    QFont font = letters(canvas, millimetres, bold);
    const int smallest = letters(canvas, std::min(millimetres, smallestLetters(canvas)), bold).pixelSize();
    double wanted = QFontMetricsF(font).horizontalAdvance(text);
    while (wanted > width && font.pixelSize() > smallest) {
        const auto fitting = static_cast<int>(font.pixelSize() * width / wanted);
        font.setPixelSize(std::clamp(fitting, smallest, font.pixelSize() - 1));
        wanted = QFontMetricsF(font).horizontalAdvance(text);
    }
    return font;
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

double smallestLetters(const Canvas& canvas) {
    return canvas.view.paper ? 1.5 : 1.9;
}

void writeFitted(const Canvas& canvas, const QRectF& box, Qt::Alignment alignment, const QString& text,
                 double millimetres, bool bold) {
    const QFont font = lettersFor(canvas, text, box.width(), millimetres, bold);
    canvas.painter.setFont(font);
    // The ends of a name tell more than its middle: "Res 16 inch", "Res 64 inch".
    const QString shown = QFontMetricsF(font).elidedText(text, Qt::ElideMiddle, box.width());
    canvas.painter.drawText(box, static_cast<int>(alignment) | Qt::TextDontClip, shown);
}

} // namespace tarvik
