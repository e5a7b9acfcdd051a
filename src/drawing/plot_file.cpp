#include "drawing/plot_file.h"

#include "base/failure.h"
#include "display/print_order.h"
#include "drawing/picture_file.h"

namespace tarvik {

namespace {

int halfOf(std::size_t page, std::size_t pages) {
    return static_cast<int>((2 * page + 1) * 100 / (2 * pages));
}

} // namespace

void writePlot(const LogSheet& sheet, const PlotTarget& target, const Progress& progress) {
    Paper paper = target.paper;
    if (!hasPages(target.file)) paper.height = 0;
    const PagePlan plan = planOf(sheet, paper);
    if (const std::string problem = planProblem(plan); !problem.empty())
        throw Failure(ErrorNumber::badFile, target.file.string() + ": " + problem);
    PagePainter pages;
    writePicture(target.file, {plan.width, plan.height, plan.pages.size(), target.dotsPerInch},
                 sheet.heading.hole + " " + sheet.heading.title,
                 [&](QPainter& painter, std::size_t page, double unitsPerMillimetre, bool vectors) {
                     pages.paint(painter, sheet, plan, page, unitsPerMillimetre, vectors);
                     if (progress) progress(halfOf(page, plan.pages.size()), "Drawing and writing the log");
                 });
}

} // namespace tarvik
