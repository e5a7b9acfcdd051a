#include "drawing/pair_painter.h"

#include <QPainter>

namespace tarvik {

namespace {

bool stands(const std::optional<SecondRun>& second, Comparison how) {
    return second && second->how == how;
}

/// Draws with the second run's display from the left edge of its pane.
template <class Draw>
void inRightPane(QPainter& painter, const LogPair& pair, const DisplayView& view, Draw&& draw) {
    painter.save();
    painter.translate(view.width + paneGap(view), 0);
    draw(beside(pair.display, pair.second->data, pair.second->marks));
    painter.restore();
}

} // namespace

void PairPainter::paint(QPainter& painter, const LogPair& pair, const DisplayView& view) {
    const double head = LogPainter::headHeight(pair.display, view);
    paintHead(painter, pair, view);
    painter.save();
    painter.translate(0, head);
    paintBody(painter, pair, view, view.height - head);
    painter.restore();
}

void PairPainter::paintHead(QPainter& painter, const LogPair& pair, const DisplayView& view) {
    first_.paintHead(painter, pair.display, pair.data, view);
    if (!stands(pair.second, Comparison::beside)) return;
    inRightPane(painter, pair, view, [&](const LogDisplay& display) {
        second_.paintHead(painter, display, pair.second->data, view);
    });
}

void PairPainter::paintBody(QPainter& painter, const LogPair& pair, const DisplayView& view, double height) {
    LogPainter::Under under;
    if (stands(pair.second, Comparison::over)) {
        under = [&](QPainter& on, const DisplayView& shown, const Band& band) {
            second_.paintCurves(on, overlaid(pair.display), pair.second->data, shown, band);
        };
    }
    first_.paintBody(painter, pair.display, pair.data, view, height, under);
    if (!stands(pair.second, Comparison::beside)) return;
    inRightPane(painter, pair, view, [&](const LogDisplay& display) {
        second_.paintBody(painter, display, pair.second->data, view, height);
    });
}

} // namespace tarvik
