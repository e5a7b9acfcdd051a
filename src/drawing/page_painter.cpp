#include "drawing/page_painter.h"

#include "drawing/heading_painter.h"

#include <cmath>

namespace tarvik {

namespace {

struct PageCanvas {
    QPainter& painter;
    const LogSheet& sheet;
    const PagePlan& plan;
    const PlannedPage& page;
    DisplayView view; ///< as wide as what is printed
};

/// Small triangles in the margins where the part that stands on the page before ends.
void paintOverlapMarks(const PageCanvas& on) {
    const double y = on.view.millimetres(on.page.bodyTop + on.page.repeated);
    const double size = on.view.millimetres(2);
    const double left = on.view.millimetres(on.plan.margin);
    const double right = on.view.millimetres(on.plan.width - on.plan.margin);
    on.painter.setPen(Qt::NoPen);
    on.painter.setBrush(qColour(on.sheet.display.scheme.frame));
    const double gap = on.view.millimetres(0.8);
    for (const auto& [edge, way] : {std::pair{left - gap, -1.0}, std::pair{right + gap, 1.0}}) {
        on.painter.drawPolygon(QPolygonF({QPointF(edge, y), QPointF(edge + way * size, y - size / 2),
                                          QPointF(edge + way * size, y + size / 2)}));
    }
    on.painter.setBrush(Qt::NoBrush);
}

void paintFooter(const PageCanvas& on, std::size_t number) {
    const Scheme& scheme = on.sheet.display.scheme;
    const double margin = on.view.millimetres(on.plan.margin);
    const QRectF box(margin, on.view.millimetres(on.plan.height - on.plan.margin - footerHeight + 2),
                     on.view.millimetres(on.plan.contentWidth()), on.view.millimetres(footerHeight - 2));
    const QFont font = lettersOf(on.view.millimetres(2.3));
    on.painter.setFont(font);
    on.painter.setPen(qColour(scheme.quietText));
    std::string text = on.sheet.second ? on.sheet.legend : on.sheet.heading.hole;
    if (!text.empty()) text += "   ";
    text += on.sheet.heading.scale;
    if (!on.sheet.heading.inches.empty()) text += "   " + on.sheet.heading.inches;
    const double left = box.width() * (on.sheet.second ? 0.86 : 0.7);
    on.painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, fitted(font, qText(text), left));
    if (on.plan.pages.size() > 1) {
        const QString page = QStringLiteral("Page %1 of %2").arg(number + 1).arg(on.plan.pages.size());
        on.painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, page);
    }
}

void closeBody(const PageCanvas& on) {
    const double y = on.view.millimetres(on.page.bodyTop + on.page.bodyHeight);
    const double left = on.view.millimetres(on.plan.margin);
    QPen pen(qColour(on.sheet.display.scheme.frame));
    pen.setWidthF(std::max(1.0, on.view.millimetres(0.25)));
    on.painter.setPen(pen);
    on.painter.drawLine(QLineF(left, y, left + on.view.width, y));
}

} // namespace

PagePlan planOf(const LogSheet& sheet, const Paper& paper) {
    return planPages(
        {.paper = paper,
         .headingHeight = sheet.withHeading ? headingMillimetres(sheet.heading) : 0,
         .headHeight = PairPainter::headMillimetres({sheet.display, sheet.data, sheet.second}, sheet.view),
         .from = sheet.from,
         .to = sheet.to,
         .perMillimetre = sheet.view.perMillimetre});
}

void PagePainter::paint(QPainter& painter, const LogSheet& sheet, const PagePlan& plan, std::size_t number,
                        double unitsPerMillimetre, bool vectors) {
    const PlannedPage& page = plan.pages[number];
    DisplayView view = sheet.view;
    view.unitsPerMillimetre = unitsPerMillimetre;
    view.vectors = vectors;
    view.paper = true;
    view.rowHeight = vectors ? std::max(1.0, view.millimetres(0.05)) : 1;
    view.width = view.millimetres(plan.contentWidth());
    view.height = (sheet.to - sheet.from) * view.unitsPer(); // of all pages: they number the same depths
    view.top = page.top;
    const PageCanvas on{painter, sheet, plan, page, view};
    painter.fillRect(QRectF(0, 0, view.millimetres(plan.width), view.millimetres(plan.height)),
                     qColour(sheet.display.scheme.surface));
    // Whole dots for a picture: the body's rows are then the picture's.
    const auto placed = [&](double millimetres, auto&& draw) {
        const double y = view.millimetres(millimetres);
        const double x = view.millimetres(plan.margin);
        painter.save();
        painter.translate(vectors ? x : std::round(x), vectors ? y : std::round(y));
        draw();
        painter.restore();
    };
    if (page.heading) {
        placed(plan.margin, [&] { paintHeading({painter, sheet.display, view, {}}, sheet.heading); });
    }
    if (page.bodyHeight > 0) {
        const LogPair pair{sheet.display, sheet.data, sheet.second};
        const DisplayView pane = sheet.second ? paneOf(view, sheet.second->how) : view;
        placed(page.bodyTop,
               [&] { painter_.paintBody(painter, pair, pane, view.millimetres(page.bodyHeight)); });
        closeBody(on);
        placed(page.headTop, [&] { painter_.paintHead(painter, pair, pane); });
        if (page.tailTop) placed(*page.tailTop, [&] { painter_.paintHead(painter, pair, pane); });
        if (page.repeated > 0) paintOverlapMarks(on);
    }
    paintFooter(on, number);
}

} // namespace tarvik
