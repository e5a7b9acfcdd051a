// A run while it is being logged: the plot with its few controls, and beside it what the channels read.
#pragma once

#include "screens/live_plot.h"
#include "screens/live_values.h"
#include "screens/readings_strip.h"

#include <QWidget>

#include <functional>
#include <span>
#include <string_view>

class QComboBox;
class QLabel;
class QToolButton;

namespace tarvik {

class LiveCurvePanel;

class LiveDisplay final : public QWidget {
  public:
    LiveDisplay();

    /// A run is starting.
    void begin(const RunHeader& header);
    /// What the run has kept since the last call. At most ten times a second: it draws.
    void follow(const AcquisitionRing& ring);
    /// Whether the readings are those of now; pale when they are not.
    void showReadingsAsLatest(bool latest);
    /// What the tool's button says: "Bullseye", "Gauges", "Logs" …
    void showDisplay(std::string_view caption);
    void setScale(double scale);
    [[nodiscard]] double scale() const { return plot_->liveView().scale(); }
    void setAxis(Axis axis);
    void setEquallySpaced(bool spaced);

    /// Told the scale that is chosen here, 200 for 1:200.
    void whenScaleChosen(std::function<void(double scale)> act) { scaleChosen_ = std::move(act); }
    /// Of the last run, to be kept with its tool.
    [[nodiscard]] std::vector<LogCurve> rescaled() const { return plot_->curves().rescaled(); }
    [[nodiscard]] LivePlot& plot() { return *plot_; }
    /// Without the large digits: in a narrow window the strip stands for them.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QWidget* makeBar();
    void openCurves(const std::string& channel);
    void showState();
    void writeBar(bool wide);
    void showDigits();
    void showInStrip(const AcquisitionPoint& point);
    void placePanel();

    LivePlot* plot_;
    LiveValues* values_;
    ReadingsStrip* strip_; ///< in the place of the values where those have no room
    LiveCurvePanel* panel_;
    QWidget* bar_;
    int narrowestBar_ = 0;
    bool wideBar_ = true;
    QToolButton* depth_;
    QToolButton* time_;
    QComboBox* scales_;
    QLabel* scaleWords_;
    QToolButton* paint_;
    QToolButton* curves_;
    QToolButton* follow_;
    QLabel* note_;     ///< under the plot: what the display cannot do yet
    RunHeader header_; ///< of the run that is shown
    std::function<void(double)> scaleChosen_;
};

} // namespace tarvik
