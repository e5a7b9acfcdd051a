#include "drawing/grid_painter.h"

#include "display/ticks.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QList>

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

/// Lines by strength, so that each strength is one call and the heavy ones lie on top.
class GridLines {
  public:
    void add(TickStrength strength, const QLineF& line) {
        lines_[static_cast<std::size_t>(strength)].append(line);
    }
    void paint(const Canvas& canvas) const {
        const Scheme& scheme = canvas.display.scheme;
        const std::array<Colour, 3> colours{scheme.gridFine, scheme.gridMedium, scheme.gridHeavy};
        constexpr std::array<double, 3> widths{0.1, 0.14, 0.2};
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            canvas.painter.setPen(line(canvas, colours[i], widths[i]));
            canvas.painter.drawLines(lines_[i]);
        }
    }

  private:
    std::array<QList<QLineF>, 3> lines_;
};

/// Centred on a pixel of a window; exact where lines stay lines.
double crisp(const DisplayView& view, double position) {
    return view.vectors ? position : std::floor(position) + 0.5;
}

void addLinearGrid(GridLines& lines, const Canvas& canvas, const Column& column, int divisions,
                   const Band& band) {
    for (int i = 1; i < divisions; ++i) {
        const double x = crisp(canvas.view, column.left + column.width * i / divisions);
        const bool middle = divisions % 2 == 0 && i == divisions / 2;
        lines.add(middle ? TickStrength::medium : TickStrength::fine, {x, band.top, x, band.bottom});
    }
}

void addLogarithmicGrid(GridLines& lines, const Canvas& canvas, const Column& column, const CurveScale& scale,
                        const Band& band) {
    const ScaleMap map(scale);
    const double least = std::min(scale.left, scale.right);
    const double most = std::max(scale.left, scale.right);
    for (double decade = std::pow(10, std::floor(std::log10(least))); decade < most; decade *= 10) {
        for (int i = 1; i < 10; ++i) {
            const double value = decade * i;
            if (value <= least * 1.0001 || value >= most * 0.9999) continue;
            const double x = crisp(canvas.view, column.left + column.width * map.fraction(value));
            lines.add(i == 1 ? TickStrength::heavy : TickStrength::fine, {x, band.top, x, band.bottom});
        }
    }
}

struct AxisUnits {
    TickSpacing spacing;
    double unit = 1; ///< metres (or seconds) of one
};

AxisUnits axisUnits(const DisplayView& view, DepthUnits units) {
    if (view.axis == Axis::time) return {timeTickSpacing(view.perMillimetre), 1};
    const double unit = toMetres(1, units);
    return {depthTickSpacing(view.perMillimetre / unit), unit};
}

std::vector<Tick> ticksOf(const DisplayView& view, const AxisUnits& axis, double top, double bottom) {
    return ticksBetween(view.positionAt(top) / axis.unit, view.positionAt(bottom) / axis.unit, axis.spacing);
}

/// The lines belong to the numbers between them, whatever unit the log counts in.
DepthUnits numberedUnits(const Canvas& canvas, DepthUnits units) {
    switch (canvas.display.depthTrack.numbers) {
    case DepthNumbers::metres:
        return DepthUnits::metres;
    case DepthNumbers::feet:
        return DepthUnits::feet;
    case DepthNumbers::both:
        break;
    }
    return units;
}

void addDepthLines(GridLines& lines, const Canvas& canvas, DepthUnits units, const Band& band) {
    const AxisUnits axis = axisUnits(canvas.view, numberedUnits(canvas, units));
    for (const Tick& tick : ticksOf(canvas.view, axis, band.top - 2, band.bottom + 2)) {
        const double y = crisp(canvas.view, canvas.view.yOf(tick.position * axis.unit));
        for (const Column& column : canvas.columns.tracks) {
            lines.add(tick.strength, {column.left, y, column.right(), y});
        }
    }
}

} // namespace

void paintBorders(const Canvas& canvas, const Band& band) {
    QList<QLineF> borders;
    const auto add = [&](const Column& column) {
        for (const double x : {column.left, column.right()}) {
            const double inside = std::clamp(crisp(canvas.view, x), 0.5, canvas.view.width - 0.5);
            borders.append({inside, band.top, inside, band.bottom});
        }
    };
    for (const Column& column : canvas.columns.tracks) add(column);
    add(canvas.columns.depth);
    canvas.painter.setPen(line(canvas, canvas.display.scheme.frame, 0.2));
    canvas.painter.drawLines(borders);
}

namespace {

struct NumberColumn {
    DepthUnits units = DepthUnits::metres;
    double left = 0;
    double width = 0;
};

std::vector<NumberColumn> numberColumns(const Canvas& canvas, DepthUnits units) {
    const Column& depth = canvas.columns.depth;
    if (canvas.view.axis == Axis::time) return {{units, depth.left, depth.width}};
    switch (canvas.display.depthTrack.numbers) {
    case DepthNumbers::metres:
        return {{DepthUnits::metres, depth.left, depth.width}};
    case DepthNumbers::feet:
        return {{DepthUnits::feet, depth.left, depth.width}};
    case DepthNumbers::both:
        break;
    }
    return {{DepthUnits::metres, depth.left, depth.width / 2},
            {DepthUnits::feet, depth.left + depth.width / 2, depth.width / 2}};
}

struct NumberPlace {
    double line = 0;
    double text = 0; ///< its middle: on paper a number at an edge stands inside it
};

void paintNumber(const Canvas& canvas, const NumberColumn& column, const Tick& tick, const NumberPlace& at,
                 const QString& text) {
    const double y = at.line;
    const Scheme& scheme = canvas.display.scheme;
    const bool heavy = tick.strength == TickStrength::heavy;
    const double size = canvas.display.depthTrack.numbers == DepthNumbers::both ? 2.3 : 2.9;
    const double tickLength = std::min(canvas.mm(1.6), column.width / 8);
    const QFont font = lettersFor(canvas, text, column.width - 2 * tickLength, size, heavy);
    canvas.painter.setPen(line(canvas, scheme.text, heavy ? 0.3 : 0.2));
    const QLineF left{column.left, y, column.left + tickLength, y};
    const QLineF right{column.left + column.width - tickLength, y, column.left + column.width, y};
    canvas.painter.drawLines(QList<QLineF>{left, right});
    canvas.painter.setFont(font);
    canvas.painter.setPen(qColour(scheme.text));
    const double height = canvas.mm(5);
    canvas.painter.drawText(QRectF(column.left, at.text - height / 2, column.width, height), Qt::AlignCenter,
                            text);
}

void paintNumbers(const Canvas& canvas, const NumberColumn& column, const Band& band) {
    const DisplayView& view = canvas.view;
    const AxisUnits axis = axisUnits(view, column.units);
    TickSpacing numbered = axis.spacing;
    const bool few = view.height < 2 * numbered.medium * axis.unit * view.unitsPer();
    if (few) numbered.medium = numbered.fine;
    const double margin = canvas.mm(3);
    const double half = canvas.mm(1.5); // of a number's height
    double lowest = band.top - canvas.mm(10);
    for (const Tick& tick : ticksOf(view, axis, band.top - margin, band.bottom + margin)) {
        if (view.axis == Axis::time && tick.position < 0) continue;
        const double y = crisp(view, view.yOf(tick.position * axis.unit));
        if (view.paper && (y < band.top - 1 || y > band.bottom + 1)) continue;
        if (tick.strength == TickStrength::fine && !few) {
            const double length = std::min(canvas.mm(0.9), column.width / 12);
            canvas.painter.setPen(line(canvas, canvas.display.scheme.quietText, 0.12));
            canvas.painter.drawLine(QLineF(column.left, y, column.left + length, y));
            const double end = column.left + column.width;
            canvas.painter.drawLine(QLineF(end - length, y, end, y));
            continue;
        }
        const std::string text = view.axis == Axis::time ? timeTickText(tick.position, numbered)
                                                         : depthTickText(tick.position, numbered);
        // Paper ends at an edge: a number there is moved inside, unless it would meet the one before.
        const double middle =
            view.paper ? std::clamp(y, band.top + half, std::max(band.top + half, band.bottom - half)) : y;
        const bool meets = view.paper && middle - lowest < 2 * half;
        const bool cut = view.whole && (y - half < band.top || y + half > band.bottom);
        paintNumber(canvas, column, tick, {y, middle}, meets || cut ? QString() : qText(text));
        if (!meets) lowest = middle;
    }
}

} // namespace

void paintGrid(const Canvas& canvas, DepthUnits units, const Band& band) {
    const Scheme& scheme = canvas.display.scheme;
    canvas.painter.fillRect(QRectF(0, band.top, canvas.view.width, band.bottom - band.top),
                            qColour(scheme.surface));
    canvas.painter.setRenderHint(QPainter::Antialiasing, canvas.view.vectors);
    GridLines lines;
    for (std::size_t i = 0; i < canvas.columns.tracks.size(); ++i) {
        const Track& track = canvas.display.tracks[i];
        const Column& column = canvas.columns.tracks[i];
        if (gridKind(track) == ScaleKind::logarithmic) {
            addLogarithmicGrid(lines, canvas, column, gridScale(track), band);
        } else {
            addLinearGrid(lines, canvas, column, track.divisions, band);
        }
    }
    addDepthLines(lines, canvas, units, band);
    lines.paint(canvas);
}

void paintDepthTrack(const Canvas& canvas, const LogData& data, const Band& band) {
    canvas.painter.setRenderHint(QPainter::Antialiasing, canvas.view.vectors);
    for (const NumberColumn& column : numberColumns(canvas, data.units)) paintNumbers(canvas, column, band);
}

namespace {

constexpr double markLetters = 3.4; // height of a line of a mark's text, mm
constexpr qsizetype mostMarkLines = 3;

/// As many words to a line as have room; what has none on the last line is cut.
QStringList wrapped(const QFont& font, const QString& text, double width) {
    const QFontMetricsF metrics(font);
    QStringList lines(1);
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
        QString& last = lines.back();
        const QString longer = last.isEmpty() ? word : last + ' ' + word;
        const bool goesOn = metrics.horizontalAdvance(longer) <= width || last.isEmpty();
        if (goesOn || lines.size() == mostMarkLines) {
            last = longer;
        } else {
            lines.append(word);
        }
    }
    for (QString& each : lines) each = fitted(font, each, width);
    return lines;
}

/// A text above `foot`, at the left edge of the column.
void paintMarkText(const Canvas& canvas, const QStringList& lines, const Column& column, double foot) {
    double y = foot - canvas.mm(0.2) - canvas.mm(markLetters) * static_cast<double>(lines.size());
    for (const QString& text : lines) {
        const QRectF box(column.left + canvas.mm(1), y, column.width, canvas.mm(markLetters));
        canvas.painter.drawText(box, Qt::AlignVCenter | Qt::AlignLeft, text);
        y += canvas.mm(markLetters);
    }
}

void paintMarkLine(const Canvas& canvas, const DepthMark& mark, double y) {
    QPen pen = line(canvas, canvas.display.scheme.mark, 0.25);
    if (mark.kind == MarkKind::fluid) pen.setDashPattern({4, 3});
    if (mark.kind == MarkKind::annotation) pen.setDashPattern({1, 2});
    canvas.painter.setPen(pen);
    canvas.painter.drawLine(QLineF(0, y, canvas.view.width, y));
}

} // namespace

/// Texts stand in the first track; where they would stand in each other, in a track beside it, and where none
/// has room, lower than their line.
void paintMarkTexts(const Canvas& canvas, const Band& band) {
    if (canvas.view.axis != Axis::depth || canvas.columns.tracks.empty()) return;
    const QFont font = letters(canvas, 2.4, true);
    canvas.painter.setFont(font);
    canvas.painter.setPen(qColour(canvas.display.scheme.mark));
    std::vector<DepthMark> marks = canvas.display.marks;
    std::ranges::stable_sort(marks, {}, &DepthMark::depth);
    const auto& tracks = canvas.columns.tracks;
    std::vector<double> taken(tracks.size(), -1e9); // down to where, in each track
    for (const DepthMark& mark : marks) {
        const double y = crisp(canvas.view, canvas.view.yOf(mark.depth));
        const auto linesIn = [&](std::size_t track) {
            return wrapped(font, qText(mark.text), tracks[track].width - canvas.mm(2));
        };
        const auto heightIn = [&](std::size_t track) {
            return canvas.mm(markLetters) * static_cast<double>(linesIn(track).size());
        };
        std::size_t track = 0;
        while (track < tracks.size() && taken[track] > y - heightIn(track)) ++track;
        if (track == tracks.size())
            track = static_cast<std::size_t>(std::ranges::min_element(taken) - taken.begin());
        const double foot = std::max(y, taken[track] + heightIn(track));
        taken[track] = foot;
        const double reach = canvas.mm(markLetters * mostMarkLines);
        if (foot < band.top - canvas.mm(4) || y > band.bottom + reach) continue;
        paintMarkText(canvas, linesIn(track), tracks[track], foot);
    }
}

void paintMarkLines(const Canvas& canvas, const Band& band) {
    if (canvas.view.axis != Axis::depth) return;
    for (const DepthMark& mark : canvas.display.marks) {
        const double y = crisp(canvas.view, canvas.view.yOf(mark.depth));
        if (y >= band.top - canvas.mm(4) && y <= band.bottom + canvas.mm(4)) paintMarkLine(canvas, mark, y);
    }
}

} // namespace tarvik
