// The body of a log that grows: a picture that is scrolled, and painted only where rows are new.
#pragma once

#include "drawing/log_painter.h"

#include <QPixmap>

#include <optional>

namespace tarvik {

class LivePicture {
  public:
    /// Brings the picture up to date: `size` is that of the body in painter units, `pixelRatio` the pixels to
    /// each. With the same display, scale and size as before only what has scrolled in is painted, and
    /// `changed` (metres or seconds; see LiveLog). Call redraw() after a change of the display.
    void update(const LogDisplay& display, const LogData& data, const DisplayView& view, const QSize& size,
                double pixelRatio, const std::optional<Band>& changed);
    void redraw() { pixmap_ = {}; }

    [[nodiscard]] const QPixmap& pixmap() const { return pixmap_; }
    /// Painter units of the body that the last update painted: what it cost.
    [[nodiscard]] double painted() const { return painted_; }

  private:
    [[nodiscard]] bool fits(const DisplayView& view, const QSize& size, double pixelRatio) const;
    void paint(const LogDisplay& display, const LogData& data, const DisplayView& view, Band band);

    LogPainter painter_;
    QPixmap pixmap_;
    DisplayView view_;
    double painted_ = 0;
};

} // namespace tarvik
