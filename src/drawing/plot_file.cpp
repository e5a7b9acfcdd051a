#include "drawing/plot_file.h"

#include "base/failure.h"
#include "drawing/picture_file.h"

namespace tarvik {

void writePlot(const LogSheet& sheet, const PlotTarget& target) {
    Paper paper = target.paper;
    if (!hasPages(target.file)) paper.height = 0;
    const PagePlan plan = planOf(sheet, paper);
    if (plan.pages.size() >= mostPages) {
        throw Failure(ErrorNumber::badFile, target.file.string() + ": this would be " +
                                                std::to_string(mostPages) +
                                                " pages or more; take a smaller scale or a part of the log");
    }
    PagePainter pages;
    writePicture(target.file, {plan.width, plan.height, plan.pages.size(), target.dotsPerInch},
                 sheet.heading.hole + " " + sheet.heading.title,
                 [&](QPainter& painter, std::size_t page, double unitsPerMillimetre, bool vectors) {
                     pages.paint(painter, sheet, plan, page, unitsPerMillimetre, vectors);
                 });
}

} // namespace tarvik
