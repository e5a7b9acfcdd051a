#include "drawing/heading_painter.h"

#include <array>
#include <numeric>

namespace tarvik {

namespace {

void write(const Canvas& canvas, const QRectF& box, int alignment, double size, bool bold,
           const Colour& colour, std::string_view text) {
    canvas.painter.setPen(qColour(colour));
    writeFitted(canvas, box, Qt::Alignment(alignment), qText(text), size, bold);
}

void rule(const Canvas& canvas, double y, double width) {
    canvas.painter.setPen(line(canvas, canvas.display.scheme.frame, width));
    canvas.painter.drawLine(QLineF(0, y, canvas.view.width, y));
}

void paintTitle(const Canvas& canvas, const LogHeading& heading) {
    const Scheme& scheme = canvas.display.scheme;
    const double width = canvas.view.width;
    const double box = canvas.mm(38);
    const double text = width - box - canvas.mm(5);
    const double left = canvas.mm(2.5);
    const std::string name = heading.hole.empty() ? "Hole" : heading.hole;
    write(canvas, QRectF(left, canvas.mm(2), text, canvas.mm(4)), Qt::AlignLeft | Qt::AlignVCenter, 3.2,
          false, scheme.quietText, heading.company);
    write(canvas, QRectF(left, canvas.mm(6), text, canvas.mm(8)), Qt::AlignLeft | Qt::AlignVCenter, 6.4, true,
          scheme.text, name);
    write(canvas, QRectF(left, canvas.mm(14.4), text, canvas.mm(5)), Qt::AlignLeft | Qt::AlignVCenter, 3.3,
          false, scheme.text, heading.title);
    canvas.painter.setPen(line(canvas, scheme.frame, 0.2));
    canvas.painter.drawLine(QLineF(width - box, 0, width - box, canvas.mm(headingTitle)));
    const QRectF right(width - box, 0, box, canvas.mm(headingTitle));
    write(canvas, right.adjusted(0, canvas.mm(2.5), 0, canvas.mm(-13)), Qt::AlignCenter, 2.5, false,
          scheme.quietText, heading.scaleLabel);
    const double foot = heading.inches.empty() ? 3 : 6; // mm below the scale
    write(canvas, right.adjusted(0, canvas.mm(6), 0, canvas.mm(-foot)), Qt::AlignCenter, 6.4, true,
          scheme.text, heading.scale);
    write(canvas, right.adjusted(0, canvas.mm(14.5), 0, canvas.mm(-1.5)), Qt::AlignCenter, 2.8, false,
          scheme.text, heading.inches);
    rule(canvas, canvas.mm(headingTitle), 0.3);
}

double paintFields(const Canvas& canvas, const LogHeading& heading, double top) {
    const Scheme& scheme = canvas.display.scheme;
    const double cell = canvas.view.width / headingColumns;
    for (std::size_t i = 0; i < heading.fields.size(); ++i) {
        const double x = cell * static_cast<double>(i % headingColumns);
        const double y = top + canvas.mm(headingRow) * static_cast<double>(i / headingColumns);
        const double width = cell - canvas.mm(4);
        write(canvas, QRectF(x + canvas.mm(2.5), y + canvas.mm(0.9), width, canvas.mm(3)),
              Qt::AlignLeft | Qt::AlignVCenter, 2.1, false, scheme.quietText, heading.fields[i].label);
        write(canvas, QRectF(x + canvas.mm(2.5), y + canvas.mm(3.7), width, canvas.mm(4.2)),
              Qt::AlignLeft | Qt::AlignVCenter, 3, false, scheme.text, heading.fields[i].value);
        if (i % headingColumns != 0) {
            canvas.painter.setPen(line(canvas, scheme.gridHeavy, 0.15));
            canvas.painter.drawLine(QLineF(x, y, x, y + canvas.mm(headingRow)));
        }
        if (i % headingColumns + 1 == headingColumns || i + 1 == heading.fields.size()) {
            canvas.painter.setPen(line(canvas, scheme.gridHeavy, 0.15));
            canvas.painter.drawLine(
                QLineF(0, y + canvas.mm(headingRow), canvas.view.width, y + canvas.mm(headingRow)));
        }
    }
    const std::size_t rows = (heading.fields.size() + headingColumns - 1) / headingColumns;
    return top + canvas.mm(headingRow) * static_cast<double>(rows);
}

template <class Texts>
void paintTableRow(const Canvas& canvas, const Texts& texts, double y, bool head) {
    constexpr std::array<double, 6> shares{17, 12, 19, 19, 15, 28};
    const double all = std::accumulate(shares.begin(), shares.end(), 0.0);
    const Scheme& scheme = canvas.display.scheme;
    double x = canvas.mm(2.5);
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const double width = (canvas.view.width - canvas.mm(4)) * shares[i] / all;
        write(canvas, QRectF(x, y, width - canvas.mm(1.5), canvas.mm(headingLine)),
              Qt::AlignLeft | Qt::AlignVCenter, head ? 2.1 : 2.5, false,
              head ? scheme.quietText : scheme.text, texts[i]);
        x += width;
    }
}

double paintCalibrations(const Canvas& canvas, const LogHeading& heading, double y) {
    if (heading.calibrations.empty()) return y;
    paintTableRow(canvas, LogHeading::calibrationColumns, y, true);
    for (const auto& row : heading.calibrations) {
        y += canvas.mm(headingLine);
        paintTableRow(canvas, row, y, false);
    }
    y += canvas.mm(headingLine);
    rule(canvas, y, 0.15);
    return y;
}

void paintRemarks(const Canvas& canvas, const LogHeading& heading, double y) {
    if (heading.remarks.empty()) return;
    const Scheme& scheme = canvas.display.scheme;
    const double width = canvas.view.width - canvas.mm(5);
    const auto next = [&](double size, const Colour& colour, std::string_view text) {
        write(canvas, QRectF(canvas.mm(2.5), y, width, canvas.mm(headingLine)),
              Qt::AlignLeft | Qt::AlignVCenter, size, false, colour, text);
        y += canvas.mm(headingLine);
    };
    next(2.1, scheme.quietText, "Remarks");
    for (const std::string& remark : heading.remarks) next(2.6, scheme.text, remark);
}

} // namespace

void paintHeading(const Canvas& canvas, const LogHeading& heading) {
    canvas.painter.save();
    canvas.painter.setRenderHint(QPainter::Antialiasing, true);
    canvas.painter.setRenderHint(QPainter::TextAntialiasing, true);
    const double height = canvas.mm(headingMillimetres(heading));
    canvas.painter.fillRect(QRectF(0, 0, canvas.view.width, height), qColour(canvas.display.scheme.surface));
    paintTitle(canvas, heading);
    const double fields = paintFields(canvas, heading, canvas.mm(headingTitle));
    paintRemarks(canvas, heading, paintCalibrations(canvas, heading, fields));
    const double inset = canvas.mm(0.15);
    canvas.painter.setPen(line(canvas, canvas.display.scheme.frame, 0.3));
    canvas.painter.drawRect(QRectF(inset, inset, canvas.view.width - 2 * inset, height - 2 * inset));
    canvas.painter.restore();
}

} // namespace tarvik
