// A log laid out as a print order asks for it.
#pragma once

#include "display/print_order.h"
#include "drawing/page_painter.h"

namespace tarvik {

/// In the colours of paper, whatever the display's are on the screen. Holds views of the log.
[[nodiscard]] LogSheet printSheet(const ReviewLog& log, const LogDisplay& display, const PrintOrder& order);

/// The heading says the scale of the sheet; for a log in feet in inches too, if asked for.
void sayScale(LogSheet& sheet, const ReviewLog& log, bool inches);

/// Puts a second run over the log of the sheet or beside it, and says so in the heading and at the foot.
void compareOnSheet(LogSheet& sheet, const ReviewLog& log, const ReviewLog& other, Comparison how);

} // namespace tarvik
