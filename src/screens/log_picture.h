// The logs of the run under review: track heads that stay, a body that scrolls under them, and what the
// curves read where the pointer is. A second run can be laid over the first or stand beside it.
#pragma once

#include "base/review_log.h"
#include "display/display_history.h"
#include "display/display_place.h"
#include "display/display_view.h"
#include "display/log_data.h"
#include "display/second_run.h"
#include "drawing/pair_painter.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QScrollBar;

namespace tarvik {

class ReadingsStrip;

class LogPicture final : public QWidget {
  public:
    LogPicture();

    /// Null: nothing is drawn. The log outlives its time here. `notes` are marks besides those of its header.
    void setLog(const ReviewLog* log, std::vector<DepthMark> notes = {});
    /// Null: the first run alone again. The second log outlives its time here.
    void compareWith(const ReviewLog* second, Comparison how);
    /// By depth or by time, from its start at the same scale.
    void setAxis(Axis axis);
    [[nodiscard]] Axis axis() const { return view_.axis; }
    /// Whether there is more than one axis to show the log by.
    [[nodiscard]] bool hasTimes() const { return !data_.time.empty() && data_.has(Axis::time); }
    /// 1:`scale`; what is at the top stays there.
    void setScale(double scale);
    [[nodiscard]] double scale() const { return scaleOf(view_); }
    /// The whole log in the window, each curve in a track of its own.
    void showEquallySpaced();
    [[nodiscard]] bool isEquallySpaced() const { return view_.equallySpaced; }
    /// Metres or seconds.
    void jumpTo(double position);
    /// Reads the step next below the one that was read (or the middle of the window), or above it.
    void readNext(bool up);
    /// What of the log the window shows, in metres whatever the axis.
    [[nodiscard]] Extent visible() const;
    /// What the window shows of both when there are two, metres or seconds.
    [[nodiscard]] Extent visibleOfBoth() const;
    /// From the start of the log to its end, metres or seconds; of both when there are two.
    [[nodiscard]] Extent extent() const;
    /// What is drawn of a second run.
    [[nodiscard]] const std::optional<SecondRun>& second() const { return second_; }

    /// The display without the changes that are only being tried.
    [[nodiscard]] const LogDisplay& display() const { return history_.current(); }
    /// The one that this log got by itself, in the colours of the screen.
    [[nodiscard]] LogDisplay usualDisplay() const;
    /// Shown until the next change; nothing: what is kept is shown again.
    void preview(std::optional<LogDisplay> tried);
    void change(LogDisplay next);
    void undo();
    void redo();
    [[nodiscard]] bool canUndo() const { return history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return history_.canRedo(); }

    /// Called when the display, the scale or the run has become another.
    void whenChanged(std::function<void()> act) { changed_ = std::move(act); }
    /// A double click, or Enter on the curve heads.
    void whenPicked(std::function<void(const DisplayPlace&)> act) { picked_ = std::move(act); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Drag {
        bool zooms = false; ///< marks the interval to look at; else the log is moved
        double from = 0;    ///< y of the widget
        double to = 0;
        DisplayView view; ///< as it was when the drag began
    };

    [[nodiscard]] double headHeight() const;
    [[nodiscard]] double bodyHeight() const { return view_.height - headHeight(); }
    void layOut();
    void moveTo(const DisplayView& view);
    void displayChanged();
    void redraw();
    void render();
    void paintPointer(QPainter& painter);
    void showReadings(double y);

    const ReviewLog* log_ = nullptr;
    LogData data_;
    std::vector<DepthMark> notes_;
    DisplayHistory history_{LogDisplay{}};
    std::optional<LogDisplay> tried_;
    LogDisplay drawn_; ///< what is kept or tried, in the colours of the theme
    DisplayView view_; ///< of one pane, when two runs stand side by side
    std::unique_ptr<PairPainter> painter_;
    std::optional<SecondRun> second_;
    QPixmap picture_;               ///< null: to be drawn anew
    std::optional<double> pointer_; ///< y of the widget
    std::optional<Drag> drag_;
    bool showsAll_ = false; ///< by F5, and not moved since: it goes on to when the window's size changes
    std::function<void()> changed_;
    std::function<void(const DisplayPlace&)> picked_;
    QScrollBar* bar_;
    ReadingsStrip* readings_;
};

} // namespace tarvik
