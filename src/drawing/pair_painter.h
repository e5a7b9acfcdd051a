// A log alone, or with a second run over it or beside it: to one scale, under heads of one height.
#pragma once

#include "display/second_run.h"
#include "drawing/log_painter.h"

#include <optional>

namespace tarvik {

/// What is drawn, and how. All outlive the drawing.
struct LogPair {
    const LogDisplay& display; ///< of both
    const LogData& data;
    const std::optional<SecondRun>& second;
};

/// The views are those of one pane (`paneOf`): beside the first the second run has as much room again.
class PairPainter {
  public:
    /// Of both, in millimetres; and in painter units, a whole number.
    [[nodiscard]] static double headMillimetres(const LogPair& pair, const DisplayView& view);
    [[nodiscard]] static double headHeight(const LogPair& pair, const DisplayView& view);

    /// Heads and body, from the painter's origin.
    void paint(QPainter& painter, const LogPair& pair, const DisplayView& view);
    void paintHead(QPainter& painter, const LogPair& pair, const DisplayView& view);
    /// `height` painter units of the body at the painter's origin.
    void paintBody(QPainter& painter, const LogPair& pair, const DisplayView& view, double height);

  private:
    LogPainter first_;
    LogPainter second_;
};

} // namespace tarvik
