// What every curve reads where the pointer is: a table under the logs that has a place for each curve and
// never cuts a value, however many there are.
#pragma once

#include "display/log_display.h"
#include "display/review_tools.h"

#include <QWidget>

#include <optional>

namespace tarvik {

class ReadingsStrip final : public QWidget {
  public:
    ReadingsStrip();

    /// The curves that have a place. Its height follows.
    void setDisplay(const LogDisplay& display, DepthUnits units, Axis axis);
    /// Of the first run, and of a second one; nothing where nothing was logged.
    void showReadings(const std::optional<CursorReading>& first, const std::optional<CursorReading>& second);
    /// No depth is asked for: how to ask for one stands there instead.
    void showNone();
    /// A line that stays, such as which run is drawn how; empty: none.
    void setLegend(const QString& text);

    /// Given less, it scrolls by the wheel.
    [[nodiscard]] int heightFor(int width) const;
    /// As it stands there: "Depth 12.50 m", "GR 45.20 API".
    [[nodiscard]] QStringList texts() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    struct Cell {
        QString name;
        QString value;
        QString unit;
        QColor colour;
    };
    [[nodiscard]] std::vector<Cell> cells() const;
    [[nodiscard]] int cellWidth() const;
    [[nodiscard]] int columns(int width) const;
    [[nodiscard]] int rows(int width) const;
    /// Rows of values that have room.
    [[nodiscard]] int rowsShown() const;

    LogDisplay display_;
    DepthUnits units_ = DepthUnits::metres;
    Axis axis_ = Axis::depth;
    bool hasSecond_ = false;
    bool asked_ = false;
    std::optional<CursorReading> first_;
    std::optional<CursorReading> second_;
    QString legend_;
    int firstRow_ = 0;
};

} // namespace tarvik
