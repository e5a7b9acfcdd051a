// A log on paper: the pages of a plan, drawn to exact scale on any painter.
#pragma once

#include "display/log_heading.h"
#include "display/page_plan.h"
#include "drawing/pair_painter.h"

namespace tarvik {

/// All that is printed. Views of data that outlive it.
struct LogSheet {
    LogDisplay display;
    LogData data;
    std::optional<SecondRun> second; ///< printed with the log
    std::string legend;              ///< which of the two is drawn how; at the foot of every page
    LogHeading heading;
    bool withHeading = true;
    DisplayView view; ///< scale, axis and layout; its top and size are those of the pages
    double from = 0;  ///< metres
    double to = 0;
};

[[nodiscard]] PagePlan planOf(const LogSheet& sheet, const Paper& paper);

class PagePainter {
  public:
    /// The page into `unitsPerMillimetre` times the plan's size, from the painter's origin.
    void paint(QPainter& painter, const LogSheet& sheet, const PagePlan& plan, std::size_t page,
               double unitsPerMillimetre, bool vectors);

  private:
    PairPainter painter_;
};

} // namespace tarvik
