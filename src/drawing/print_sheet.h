// A log laid out as a print order asks for it.
#pragma once

#include "display/print_order.h"
#include "drawing/page_painter.h"

namespace tarvik {

/// In the colours of paper, whatever the display's are on the screen. Holds views of the log.
[[nodiscard]] LogSheet printSheet(const ReviewLog& log, const LogDisplay& display, const PrintOrder& order);

} // namespace tarvik
