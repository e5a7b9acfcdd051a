// The logs of a run while it is being logged: track heads that stay, a body that follows the tool, of which
// only new rows are drawn; or the gauges or the plan view in their place.
#pragma once

#include "base/run_header.h"
#include "display/live_curves.h"
#include "display/live_log.h"
#include "display/live_view.h"
#include "drawing/live_picture.h"

#include <QWidget>

#include <functional>
#include <string>

class QScrollBar;

namespace tarvik {

class LivePlot final : public QWidget {
  public:
    LivePlot();

    /// A run is starting: the empty plot, by depth or by time as the run is sampled.
    void begin(const RunHeader& header);
    /// Takes what has come since the last call and draws it.
    void follow(const AcquisitionRing& ring);
    /// What the tool's button says: "Bullseye", "Gauges", "Logs" …
    void showDisplay(std::string_view caption);

    void setScale(double scale);
    void setAxis(Axis axis);
    void setEquallySpaced(bool spaced);
    void followTool();
    /// The colours of the theme that is applied now.
    void takeTheme();
    /// False when the scale cannot be used.
    bool change(std::string_view channel, const ScalePair& scale, const std::string& filter);

    [[nodiscard]] const LiveCurves& curves() const { return curves_; }
    [[nodiscard]] const LiveView& liveView() const { return view_; }
    [[nodiscard]] LivePage page() const { return livePage(toolCode_, caption_); }
    /// Whether the view still follows, or its axis or scale, may have changed.
    void whenMoved(std::function<void()> act) { moved_ = std::move(act); }
    /// A double click on the head of a curve.
    void whenCurveChosen(std::function<void(const std::string& channel)> act) {
        curveChosen_ = std::move(act);
    }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    [[nodiscard]] int headHeight() const;
    [[nodiscard]] QRect body() const;
    void layOut();
    void placeTool();
    void moveBy(double units);
    void redraw();
    void draw(const std::optional<Band>& changed);
    void showMoved();
    void paintLogs(QPainter& painter, const QRect& dirty);
    void paintTool(QPainter& painter);
    void paintWaiting(QPainter& painter);

    std::string toolCode_;
    std::string caption_;
    LiveLog log_;
    LiveCurves curves_;
    LogDisplay laidOut_; ///< as drawn: the curves that are shown, equally spaced where that is asked for
    LiveView view_;
    LivePicture picture_;
    QScrollBar* bar_;
    std::function<void()> moved_;
    std::function<void(const std::string&)> curveChosen_;
};

} // namespace tarvik
