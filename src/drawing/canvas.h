// What every part of the log painter draws on, and the few things that all of them need from the toolkit.
#pragma once

#include "display/columns.h"
#include "display/display_view.h"
#include "display/log_display.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include <string_view>

namespace tarvik {

/// References that outlive the drawing of one picture. The painter's origin is the upper left corner of the
/// part that is drawn.
struct Canvas {
    QPainter& painter;
    const LogDisplay& display;
    const DisplayView& view;
    Columns columns;

    [[nodiscard]] double mm(double length) const { return view.millimetres(length); }
};

[[nodiscard]] QColor qColour(const Colour& colour);
[[nodiscard]] QString qText(std::string_view utf8);

/// `millimetres` is the height of the font's letters with their ascenders and descenders.
[[nodiscard]] QFont letters(const Canvas& canvas, double millimetres, bool bold = false);
[[nodiscard]] QFont lettersOf(double painterUnits, bool bold = false);

/// The same, smaller where the text would be wider than `width`, but never smaller than can be read.
[[nodiscard]] QFont lettersFor(const Canvas& canvas, const QString& text, double width, double millimetres,
                               bool bold = false);

/// A line of a number of millimetres, of at least one painter unit (a hairline is invisible on paper).
[[nodiscard]] QPen line(const Canvas& canvas, const Colour& colour, double millimetres);

/// The pen of a curve: its ink, its width and its dashes, which are counted in millimetres.
[[nodiscard]] QPen curvePen(const Canvas& canvas, const LogCurve& curve);

/// The text, shortened with an ellipsis until it fits.
[[nodiscard]] QString fitted(const QFont& font, const QString& text, double width);

/// Writes into the box with letters of `millimetres`, smaller ones where the text would not fit, and
/// shortened where it would not fit with the smallest either.
void writeFitted(const Canvas& canvas, const QRectF& box, Qt::Alignment alignment, const QString& text,
                 double millimetres, bool bold = false);
/// The smallest that can be read, in millimetres: a print is read from nearer than a screen.
[[nodiscard]] double smallestLetters(const Canvas& canvas);

} // namespace tarvik
