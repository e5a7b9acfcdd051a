#include "drawing/plot_file.h"

#include "base/failure.h"
#include "display/print_order.h"
#include "drawing/picture_file.h"

namespace tarvik {

void writePlot(const LogSheet& sheet, const PlotTarget& target) {
    Paper paper = target.paper;
    if (!hasPages(target.file)) paper.height = 0;
    const PagePlan plan = planOf(sheet, paper);
    if (plan.cut) throw Failure(ErrorNumber::badFile, target.file.string() + ": " + tooManyPages());
    PagePainter pages;
    writePicture(target.file, {plan.width, plan.height, plan.pages.size(), target.dotsPerInch},
                 sheet.heading.hole + " " + sheet.heading.title,
                 [&](QPainter& painter, std::size_t page, double unitsPerMillimetre, bool vectors) {
                     pages.paint(painter, sheet, plan, page, unitsPerMillimetre, vectors);
                 });
}

} // namespace tarvik
