// The logs of the run under review: track heads that stay, a body that scrolls under them, and what the
// curves read where the pointer is.
#pragma once

#include "base/review_log.h"
#include "display/display_view.h"
#include "display/log_data.h"
#include "display/log_display.h"
#include "drawing/log_painter.h"

#include <QWidget>

#include <memory>

class QLabel;
class QScrollBar;

namespace tarvik {

class LogPicture final : public QWidget {
  public:
    LogPicture();

    /// Null: nothing is drawn. The log outlives its time here.
    void setLog(const ReviewLog* log);
    /// 1:`scale`; what is at the top stays there.
    void setScale(double scale);
    /// The whole log in the window, each curve in a track of its own.
    void showEquallySpaced();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] double headHeight() const;
    [[nodiscard]] double bodyHeight() const { return view_.height - headHeight(); }
    [[nodiscard]] const LogDisplay& shown() const { return view_.equallySpaced ? spaced_ : display_; }
    void makeDisplay();
    void moveTo(const DisplayView& view);
    void layOut();
    void showReadings(double y);

    const ReviewLog* log_ = nullptr;
    LogData data_;
    LogDisplay display_;
    LogDisplay spaced_;
    DisplayView view_;
    std::unique_ptr<LogPainter> painter_;
    QScrollBar* bar_;
    QLabel* readings_;
};

} // namespace tarvik
