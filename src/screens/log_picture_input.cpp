// How the logs are moved by wheel, keys and pointer.
#include "screens/log_picture.h"

#include "screens/theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>

namespace tarvik {

namespace {

constexpr double zoomStep = 1.25;
constexpr int lineUnits = 24;
constexpr double leastInterval = 6; // painter units; less is a click with an unsteady hand

} // namespace

/// With Ctrl it zooms around the pointer.
void LogPicture::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / 120.0;
    if (event->modifiers() & Qt::ControlModifier)
        moveTo(zoomed(view_, std::pow(zoomStep, steps), event->position().y() - headHeight()));
    else
        moveTo(scrolled(view_, -steps * 3 * lineUnits));
    event->accept();
}

void LogPicture::keyPressEvent(QKeyEvent* event) {
    DisplayView view = view_;
    const bool reads = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Down:
        if (reads) return readNext(false);
        return moveTo(scrolled(view_, lineUnits));
    case Qt::Key_Up:
        if (reads) return readNext(true);
        return moveTo(scrolled(view_, -lineUnits));
    case Qt::Key_PageDown:
        return moveTo(scrolled(view_, std::floor(bodyHeight() * 0.9)));
    case Qt::Key_PageUp:
        return moveTo(scrolled(view_, -std::floor(bodyHeight() * 0.9)));
    case Qt::Key_Plus:
        return moveTo(zoomed(view_, zoomStep, bodyHeight() / 2));
    case Qt::Key_Minus:
        return moveTo(zoomed(view_, 1 / zoomStep, bodyHeight() / 2));
    case Qt::Key_Home:
        view.top = extent().from - edgeRoom(view);
        return moveTo(view);
    case Qt::Key_End:
        view.top = extent().to;
        return moveTo(view);
    case Qt::Key_Escape:
        if (drag_) drag_.reset();
        return update();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (picked_ && log_ != nullptr) picked_({DisplayPlace::Part::track, 0, 0});
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

/// The left or the middle button takes the paper along; with Shift, or the right button, an interval is
/// marked to be looked at.
void LogPicture::mousePressEvent(QMouseEvent* event) {
    if (log_ == nullptr || event->position().y() < headHeight()) return;
    const bool zooms =
        event->button() == Qt::RightButton || (event->modifiers() & Qt::ShiftModifier) != Qt::NoModifier;
    drag_ = Drag{zooms, event->position().y(), event->position().y(), view_};
    setCursor(zooms ? Qt::SplitVCursor : Qt::ClosedHandCursor);
}

void LogPicture::mouseMoveEvent(QMouseEvent* event) {
    const double y = event->position().y();
    pointer_ = y;
    if (drag_) {
        drag_->to = y;
        if (!drag_->zooms) moveTo(scrolled(drag_->view, drag_->from - y));
    }
    showReadings(y - headHeight());
    update();
}

void LogPicture::mouseReleaseEvent(QMouseEvent*) {
    unsetCursor();
    if (!drag_) return;
    const Drag drag = *std::exchange(drag_, std::nullopt);
    if (drag.zooms && std::abs(drag.to - drag.from) >= leastInterval) {
        const double from = view_.positionAt(std::min(drag.from, drag.to) - headHeight());
        const double to = view_.positionAt(std::max(drag.from, drag.to) - headHeight());
        moveTo(showingAll(view_, Extent{from, to}, bodyHeight()));
    }
    update();
}

void LogPicture::mouseDoubleClickEvent(QMouseEvent* event) {
    drag_.reset();
    unsetCursor();
    if (log_ == nullptr || !picked_ || event->button() != Qt::LeftButton) return;
    const bool right = second_ && second_->how == Comparison::beside && event->position().x() > view_.width;
    if (right && isOfAnotherKind(data_, *second_)) return; // its tracks are not those that can be edited
    const double x = event->position().x() - (right ? view_.width + paneGap(view_) : 0);
    picked_(placeAt(drawn_, view_, x, event->position().y()));
}

} // namespace tarvik
