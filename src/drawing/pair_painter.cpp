#include "drawing/pair_painter.h"

#include "display/columns.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

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
    draw(beside(pair.display, pair.data, *pair.second));
    painter.restore();
}

} // namespace

double PairPainter::headMillimetres(const LogPair& pair, const DisplayView& view) {
    const auto needed = [&view](const LogDisplay& display) {
        return tarvik::headMillimetres(view.equallySpaced ? equallySpaced(display) : display);
    };
    if (!stands(pair.second, Comparison::beside)) return needed(pair.display);
    return std::max(needed(pair.display), needed(beside(pair.display, pair.data, *pair.second)));
}

double PairPainter::headHeight(const LogPair& pair, const DisplayView& view) {
    return std::ceil(view.millimetres(headMillimetres(pair, view)));
}

void PairPainter::paint(QPainter& painter, const LogPair& pair, const DisplayView& view) {
    const double head = headHeight(pair, view);
    paintHead(painter, pair, view);
    painter.save();
    painter.translate(0, head);
    paintBody(painter, pair, view, view.height - head);
    painter.restore();
}

void PairPainter::paintHead(QPainter& painter, const LogPair& pair, const DisplayView& view) {
    const double height = headHeight(pair, view);
    first_.paintHead(painter, pair.display, pair.data, view, height);
    if (!stands(pair.second, Comparison::beside)) return;
    inRightPane(painter, pair, view, [&](const LogDisplay& display) {
        second_.paintHead(painter, display, pair.second->data, view, height);
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
