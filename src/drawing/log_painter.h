// The one painter of logs: windows, pictures, PDF and paper share it.
//
// A picture is a band of track heads above the body with grid, depths and curves. The depth scale is that of
// the view, exactly, whatever the resolution, the width or the length of a text. A painter keeps filtered
// curves and ranges of the log it draws: one painter for each log that is shown.
#pragma once

#include "display/curve_trace.h"
#include "display/log_cache.h"
#include "drawing/canvas.h"

#include <functional>

class QPainter;

namespace tarvik {

class LogPainter {
  public:
    /// Height of the track heads in painter units, a whole number.
    [[nodiscard]] static double headHeight(const LogDisplay& display, const DisplayView& view);

    /// Heads and body into the view's width and height, from the painter's origin. The painter comes back as
    /// it was.
    void paint(QPainter& painter, const LogDisplay& display, const LogData& data, const DisplayView& view);

    /// The heads alone, at the painter's origin; `height` when they are to be higher than they need.
    void paintHead(QPainter& painter, const LogDisplay& display, const LogData& data, const DisplayView& view,
                   double height = 0);

    /// Drawn between the grid and the curves: a second run laid under this one, below its marks and depths.
    using Under = std::function<void(QPainter& painter, const DisplayView& view, const Band& band)>;

    /// The body alone, `height` painter units of it, at the painter's origin: what is right where the body
    /// scrolls under heads that stay.
    void paintBody(QPainter& painter, const LogDisplay& display, const LogData& data, const DisplayView& view,
                   double height, const Under& under = {});

    /// A band of the body, which it fills completely and nothing beside it: after scrolling by whole units,
    /// or for scans that have just come. The painter's origin is the upper left corner of the body.
    void paintRows(QPainter& painter, const LogDisplay& display, const LogData& data, const DisplayView& view,
                   const Band& band, const Under& under = {});

    /// The curves alone over what is there: a second run laid over the first.
    void paintCurves(QPainter& painter, const LogDisplay& display, const LogData& data,
                     const DisplayView& view, const Band& band);

    /// Forgets what it keeps of the log; needed only to free the memory.
    void forget() { cache_.clear(); }

  private:
    [[nodiscard]] CurveTrace traceOf(const Canvas& canvas, const LogData& data, const RowIndex& index,
                                     const LogCurve& curve);
    void paintSpeed(const Canvas& canvas, const LogData& data, const Band& band);
    void paintCurvesOf(const Canvas& canvas, const LogData& data, const Band& band);

    LogCache cache_;
};

} // namespace tarvik
