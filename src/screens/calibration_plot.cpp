#include "screens/calibration_plot.h"

#include "base/axis_ticks.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int curveSteps = 200;
constexpr double pointRadius = 4;

} // namespace

CalibrationPlot::CalibrationPlot() {
    setObjectName("piccalibration");
    setAccessibleName("Points and polynomial of the calibration");
    setMinimumSize(260, 180);
}

void CalibrationPlot::showCalibration(const Calibration& calibration, const QString& unit) {
    curve_ = calibrationCurve(calibration, curveSteps);
    points_.assign(calibration.points.begin(), calibration.points.begin() + calibration.pointCount);
    unit_ = unit;
    fitAxes();
    update();
}

void CalibrationPlot::clear() {
    curve_ = {};
    points_.clear();
    update();
}

/// The axes hold the polynomial and every point.
void CalibrationPlot::fitAxes() {
    if (curve_.readings.empty()) return;
    readings_ = {curve_.readings.front(), curve_.readings.back()};
    const auto [low, high] = std::ranges::minmax(curve_.values);
    values_ = {low, high};
    for (const auto& [reading, value] : points_) {
        values_.low = std::min(values_.low, value);
        values_.high = std::max(values_.high, value);
    }
    const double room = values_.high > values_.low ? (values_.high - values_.low) * 0.06 : 1;
    values_ = {values_.low - room, values_.high + room};
}

QPointF CalibrationPlot::place(double reading, double value) const {
    const double x = (reading - readings_.low) / (readings_.high - readings_.low);
    const double y = (value - values_.low) / (values_.high - values_.low);
    return {area_.left() + x * area_.width(), area_.bottom() - y * area_.height()};
}

void CalibrationPlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColours& colours = coloursOf(appliedTheme());
    const int line = fontMetrics().height();
    if (curve_.readings.empty() || !std::isfinite(values_.low + values_.high)) {
        painter.setPen(colours.quiet);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         points_.empty() ? "Without points there is nothing to draw."
                                         : "Too few points apart from each other to be drawn.");
        return;
    }
    area_ = QRectF(rect()).adjusted(8 + 5 * line, line + 8, -12, -(2 * line + 10));
    paintAxes(painter);
    paintCurve(painter);
    paintPoints(painter);
}

void CalibrationPlot::paintAxes(QPainter& painter) const {
    paintReadings(painter);
    paintValues(painter);
    const ThemeColours& colours = coloursOf(appliedTheme());
    const int line = fontMetrics().height();
    painter.setPen(QPen(colours.line, 1));
    painter.drawRect(area_);
    painter.setPen(colours.text);
    painter.drawText(QRectF(area_.left(), height() - line - 2, area_.width(), line), Qt::AlignCenter,
                     "Reading of the sensor");
    painter.drawText(QRectF(4, 0, width() - 8, line), Qt::AlignLeft,
                     unit_.isEmpty() ? QString("Value") : "Value, " + unit_);
}

void CalibrationPlot::paintReadings(QPainter& painter) const {
    const ThemeColours& colours = coloursOf(appliedTheme());
    const int line = fontMetrics().height();
    const AxisTicks ticks = axisTicks(readings_.low, readings_.high, std::max(2, int(area_.width()) / 56));
    for (std::size_t i = 0; i < ticks.at.size(); ++i) {
        const double x = place(ticks.at[i], values_.low).x();
        painter.setPen(QPen(colours.ground, 1));
        painter.drawLine(QPointF(x, area_.top()), QPointF(x, area_.bottom()));
        painter.setPen(colours.quiet);
        painter.drawText(QRectF(x - 50, area_.bottom() + 4, 100, line), Qt::AlignHCenter,
                         qt(ticks.labels[i]));
    }
}

void CalibrationPlot::paintValues(QPainter& painter) const {
    const ThemeColours& colours = coloursOf(appliedTheme());
    const int line = fontMetrics().height();
    const AxisTicks ticks = axisTicks(values_.low, values_.high, std::max(2, int(area_.height()) / 36));
    for (std::size_t i = 0; i < ticks.at.size(); ++i) {
        const double y = place(readings_.low, ticks.at[i]).y();
        painter.setPen(QPen(colours.ground, 1));
        painter.drawLine(QPointF(area_.left(), y), QPointF(area_.right(), y));
        painter.setPen(colours.quiet);
        painter.drawText(QRectF(0, y - line / 2.0, area_.left() - 6, line), Qt::AlignRight | Qt::AlignVCenter,
                         qt(ticks.labels[i]));
    }
}

void CalibrationPlot::paintCurve(QPainter& painter) const {
    QPainterPath path(place(curve_.readings.front(), curve_.values.front()));
    for (std::size_t i = 1; i < curve_.readings.size(); ++i) {
        path.lineTo(place(curve_.readings[i], curve_.values[i]));
    }
    painter.setPen(QPen(coloursOf(appliedTheme()).accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

void CalibrationPlot::paintPoints(QPainter& painter) const {
    const ThemeColours& colours = coloursOf(appliedTheme());
    painter.setPen(QPen(colours.text, 1.5));
    painter.setBrush(colours.surface);
    for (const auto& [reading, value] : points_) {
        painter.drawEllipse(place(reading, value), pointRadius, pointRadius);
    }
}

} // namespace tarvik
