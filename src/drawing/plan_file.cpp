#include "drawing/plan_file.h"

#include "display/bullseye.h"
#include "drawing/bullseye_painter.h"
#include "drawing/heading_painter.h"
#include "drawing/picture_file.h"

namespace tarvik {

void writePlan(const LogSheet& sheet, const PlotTarget& target) {
    const Bullseye plan = bullseyeOf(sheet.data);
    const double margin = target.paper.margin;
    const double width = target.paper.width - 2 * margin;
    const double heading = sheet.withHeading ? headingMillimetres(sheet.heading) + 4 : 0;
    const double height = hasPages(target.file) && target.paper.height > 0
                              ? target.paper.height
                              : 2 * margin + heading + width * 0.82;
    LogSheet words = sheet;
    words.heading.title = "Plan view, north up";
    words.heading.scaleLabel = "Rings every";
    words.heading.inches.clear();
    words.heading.scale = scaleEndText(plan.ringStep) + " m";
    writePicture(
        target.file, {target.paper.width, height, 1, target.dotsPerInch}, sheet.heading.hole + " plan",
        [&](QPainter& painter, std::size_t, double unitsPerMillimetre, bool vectors) {
            DisplayView view = sheet.view;
            view.unitsPerMillimetre = unitsPerMillimetre;
            view.vectors = vectors;
            view.width = view.millimetres(width);
            painter.fillRect(QRectF(0, 0, view.millimetres(target.paper.width), view.millimetres(height)),
                             qColour(sheet.display.scheme.surface));
            painter.translate(view.millimetres(margin), view.millimetres(margin));
            if (sheet.withHeading) paintHeading({painter, sheet.display, view, {}}, words.heading);
            const QRectF box(0, view.millimetres(heading), view.width,
                             view.millimetres(height - 2 * margin - heading));
            paintBullseye(painter, plan, sheet.display.scheme, box, unitsPerMillimetre);
        });
}

} // namespace tarvik
