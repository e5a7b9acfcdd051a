// The points of a calibration and the polynomial through them, with axes.
#pragma once

#include "equipment/calibration_details.h"

#include <QWidget>

#include <utility>
#include <vector>

namespace tarvik {

class CalibrationPlot final : public QWidget {
  public:
    CalibrationPlot();

    /// `unit` is of the values; it may be empty.
    void showCalibration(const Calibration& calibration, const QString& unit);
    void clear();

    [[nodiscard]] QSize sizeHint() const override { return {380, 240}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Extent {
        double low = 0;
        double high = 0;
    };
    [[nodiscard]] QPointF place(double reading, double value) const;
    void fitAxes();
    void paintAxes(QPainter& painter) const;
    void paintReadings(QPainter& painter) const;
    void paintValues(QPainter& painter) const;
    void paintCurve(QPainter& painter) const;
    void paintPoints(QPainter& painter) const;

    CalibrationCurve curve_;
    std::vector<std::pair<double, double>> points_;
    QString unit_;
    Extent readings_;
    Extent values_;
    QRectF area_;
};

} // namespace tarvik
