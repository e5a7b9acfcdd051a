#include "screens/readings_strip.h"

#include "base/number_picture.h"
#include "drawing/canvas.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int lineGap = 4;
constexpr int margin = 8;
constexpr int sample = 14; // the ink of the curve before its name
constexpr const char* howToRead = "Values: point at a depth, or press Shift and an arrow key";

/// As many decimals as a value of that size is read with.
QString valueText(const std::optional<float>& value) {
    if (!value) return "\u2013";
    if (*value != 0 && std::abs(*value) < 0.0005F) return QString::number(double{*value}, 'g', 3);
    return qt(formatPicture(*value, std::abs(*value) < 10 ? "0.000" : "0.00"));
}

const Reading* readingOf(const std::optional<CursorReading>& reading, const std::string& channel) {
    if (!reading) return nullptr;
    const auto found = std::ranges::find(reading->curves, channel, &Reading::channel);
    return found == reading->curves.end() ? nullptr : &*found;
}

} // namespace

ReadingsStrip::ReadingsStrip() {
    setObjectName("lbreadings");
    setAccessibleName("Values at the pointer");
}

void ReadingsStrip::setDisplay(const LogDisplay& display, DepthUnits units, Axis axis) {
    display_ = display;
    axis_ = axis;
    units_ = units;
    update();
}

void ReadingsStrip::showReadings(const std::optional<CursorReading>& first,
                                 const std::optional<CursorReading>& second) {
    first_ = first;
    second_ = second;
    asked_ = true;
    setAccessibleDescription(texts().join(", "));
    update();
}

void ReadingsStrip::showNone() {
    asked_ = false;
    setAccessibleDescription(howToRead);
    update();
}

void ReadingsStrip::setLegend(const QString& text) {
    legend_ = text;
    hasSecond_ = !text.isEmpty();
    update();
}

std::vector<ReadingsStrip::Cell> ReadingsStrip::cells() const {
    const ThemeColours& colours = coloursOf(appliedTheme());
    const QString depth =
        first_ ? qt(formatPicture(fromMetres(first_->depth, units_), "0.00")) : QString("\u2013");
    std::vector<Cell> all{{"Depth", depth, units_ == DepthUnits::metres ? "m" : "ft", colours.text}};
    if (axis_ == Axis::time)
        all.push_back({"Time", first_ ? qt(formatPicture(first_->time, "0.00")) : QString("\u2013"), "s",
                       colours.text});
    for (const Track& track : display_.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            const Reading* const first = readingOf(first_, curve->channel);
            QString value = first != nullptr ? valueText(first->value) : QString("\u2013");
            if (hasSecond_) {
                const Reading* const second = readingOf(second_, curve->channel);
                value += " | " + (second != nullptr ? valueText(second->value) : QString("\u2013"));
            }
            all.push_back({qt(curve->channel), value, curve->calibrated ? qt(curve->unit) : QString("counts"),
                           qColour(colourOf(*curve, display_.scheme))});
        }
    }
    return all;
}

/// For the widest curve with a value of nine figures, so that no cell moves while the pointer does.
int ReadingsStrip::cellWidth() const {
    const QFontMetrics metrics(font());
    const int value = metrics.horizontalAdvance(hasSecond_ ? "-99999.99 | -99999.99" : "-99999.99");
    int widest = 0;
    for (const Cell& cell : cells()) {
        const int texts = std::max(value, metrics.horizontalAdvance(cell.value)) +
                          metrics.horizontalAdvance(cell.name + "  " + cell.unit + " ");
        widest = std::max(widest, texts);
    }
    return widest + sample + 2 * margin;
}

int ReadingsStrip::columns(int width) const {
    return std::max(1, (width - margin) / cellWidth());
}

int ReadingsStrip::rows(int width) const {
    const int count = static_cast<int>(cells().size());
    return (count + columns(width) - 1) / columns(width);
}

int ReadingsStrip::heightFor(int width) const {
    const int line = QFontMetrics(font()).height() + lineGap;
    return (rows(width) + (legend_.isEmpty() ? 0 : 1)) * line + 2 * lineGap;
}

int ReadingsStrip::rowsShown() const {
    const int line = QFontMetrics(font()).height() + lineGap;
    return std::max(1, (height() - 2 * lineGap) / line - (legend_.isEmpty() ? 0 : 1));
}

void ReadingsStrip::wheelEvent(QWheelEvent* event) {
    const int last = std::max(0, rows(width()) - rowsShown());
    firstRow_ = std::clamp(firstRow_ + (event->angleDelta().y() < 0 ? 1 : -1), 0, last);
    update();
    event->accept();
}

QStringList ReadingsStrip::texts() const {
    if (!asked_) return {howToRead};
    QStringList all;
    for (const Cell& cell : cells()) all.append(cell.name + " " + cell.value + " " + cell.unit);
    return all;
}

void ReadingsStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColours& colours = coloursOf(appliedTheme());
    const QFontMetrics metrics(font());
    const int line = metrics.height() + lineGap;
    const QRect foot(margin, height() - lineGap - line, width() - 2 * margin, line);
    painter.setPen(colours.text);
    painter.drawText(foot, Qt::AlignVCenter, legend_);
    if (!asked_) {
        painter.setPen(colours.quiet);
        painter.drawText(QRect(margin, lineGap, width() - 2 * margin, line), Qt::AlignVCenter, howToRead);
        return;
    }
    const auto all = cells();
    const int perRow = columns(width());
    const int cellRoom = std::min((width() - margin) / perRow, cellWidth() * 4 / 3);
    const int shown = rowsShown();
    const int allRows = rows(width());
    const int firstRow = std::min(firstRow_, std::max(0, allRows - shown));
    if (shown < allRows) { // which part of them is seen
        const int room = shown * line;
        painter.fillRect(width() - 4, lineGap + room * firstRow / allRows, 3, room * shown / allRows,
                         colours.quiet);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Cell& cell = all[i];
        const int row = static_cast<int>(i) / perRow - firstRow;
        if (row < 0 || row >= shown) continue;
        const int x = margin + static_cast<int>(i) % perRow * cellRoom;
        const int y = lineGap + row * line;
        painter.fillRect(x, y + line / 2 - 2, sample - 5, 3, cell.colour);
        painter.setPen(colours.quiet);
        painter.drawText(QRect(x + sample, y, cellRoom, line), Qt::AlignVCenter, cell.name);
        const int unit = metrics.horizontalAdvance(cell.unit);
        const int right = x + cellRoom - 2 * margin;
        painter.drawText(QRect(right - unit, y, unit, line), Qt::AlignVCenter, cell.unit);
        painter.setPen(isEnabled() ? colours.text : colours.quiet);
        painter.drawText(QRect(x, y, right - unit - 5 - x, line), Qt::AlignVCenter | Qt::AlignRight,
                         cell.value);
    }
}

} // namespace tarvik
