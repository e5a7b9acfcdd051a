#include "drawing/print_sheet.h"

#include "display/print_order.h"

namespace tarvik {

LogSheet printSheet(const ReviewLog& log, const LogDisplay& display, const PrintOrder& order) {
    LogSheet sheet;
    sheet.display = display;
    sheet.display.scheme = paperScheme();
    sheet.data = logDataOf(log);
    sheet.view = viewAtScale(order.scale, millimetresPerInch, order.axis);
    sheet.view.equallySpaced = order.equallySpaced;
    sheet.withHeading = order.heading;
    sheet.heading = headingOf(log, sheet.display);
    sayScale(sheet, log, order.inches);
    sheet.from = order.interval.from;
    sheet.to = order.interval.to;
    return sheet;
}

void sayScale(LogSheet& sheet, const ReviewLog& log, bool inches) {
    const double scale = scaleOf(sheet.view);
    if (sheet.view.axis == Axis::time) {
        sheet.heading.scaleLabel = "Time scale";
        sheet.heading.scale = timeScaleInWords(scale);
        return;
    }
    const bool feet = log.header.setup.units == DepthUnits::feet && !log.otherDepthUnit;
    sheet.heading.scale = scaleInWords(scale);
    if (feet && inches) sheet.heading.inches = scaleInInches(scale);
}

void compareOnSheet(LogSheet& sheet, const ReviewLog& log, const ReviewLog& other, Comparison how) {
    sheet.second = secondRun(other, how, sheet.display.scheme);
    sheet.legend = comparisonLegend(sheet.display, log, other, *sheet.second);
    sheet.heading.remarks.push_back("Two runs. " + sheet.legend);
}

} // namespace tarvik
