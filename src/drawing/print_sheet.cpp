#include "drawing/print_sheet.h"

#include "display/print_order.h"

namespace tarvik {

LogSheet printSheet(const ReviewLog& log, const LogDisplay& display, const PrintOrder& order) {
    LogSheet sheet;
    sheet.display = display;
    sheet.display.scheme = paperScheme();
    sheet.data = logDataOf(log);
    sheet.view = viewAtScale(order.scale, millimetresPerInch);
    sheet.view.equallySpaced = order.equallySpaced;
    sheet.withHeading = order.heading;
    sheet.heading = headingOf(log, sheet.display, scaleInWords(order.scale));
    sheet.from = order.interval.from;
    sheet.to = order.interval.to;
    return sheet;
}

} // namespace tarvik
