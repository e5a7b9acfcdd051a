// What the channels of the tool read while a run goes on: a column of large digits, to be read from afar,
// each with the colour of its curve.
#pragma once

#include "base/run_header.h"
#include "display/log_display.h"
#include "lcu/acquisition_ring.h"

#include <QFrame>

#include <vector>

class QLabel;
class QGridLayout;

namespace tarvik {

class LiveValues final : public QFrame {
  public:
    LiveValues();

    /// All channels of the run but Speed, which the instrument shows.
    void setRun(const RunHeader& header);
    /// The colours of the curves; a channel without a curve has none.
    void setColours(const LogDisplay& display);
    /// Pixels; more than about a dozen channels take two such columns.
    void setColumnWidth(int width);
    /// As measured: no filter of the display touches the digits.
    void showPoint(const AcquisitionPoint& point);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Value {
        std::string channel;
        bool calibrated;
        QWidget* cell;
        QFrame* swatch;
        QLabel* digits;
        QLabel* unit;
    };
    void add(const RunChannel& channel, int at);
    void fitDigits();

    QGridLayout* grid_;
    std::vector<Value> values_;
    int columns_ = 1;
    int rows_ = 1;
    int columnWidth_ = 0;
    int rowHeight_ = 0;
    int digitPixels_ = 0;
};

} // namespace tarvik
