#include "screens/log_picture.h"

#include "base/number_picture.h"
#include "display/default_display.h"
#include "display/review_tools.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double firstScale = 200;
constexpr double zoomStep = 1.25;
constexpr int lineUnits = 24; // a step of the wheel or an arrow key

} // namespace

LogPicture::LogPicture() : bar_(new QScrollBar(Qt::Vertical, this)), readings_(roleLabel("quiet")) {
    setObjectName("pictlog");
    setAccessibleName("Logs of the run");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(320, 200);
    bar_->setObjectName("logscroll");
    bar_->setFocusPolicy(Qt::NoFocus);
    readings_->setParent(this);
    readings_->setObjectName("lbreadings");
    readings_->setContentsMargins(12, 4, 12, 4);
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        const Extent extent = extentOf(data_, Axis::depth);
        view_.top = extent.from + value / view_.unitsPer();
        update();
    });
}

void LogPicture::setLog(const ReviewLog* log) {
    log_ = log;
    data_ = log == nullptr ? LogData{} : logDataOf(*log);
    painter_ = log == nullptr ? nullptr : std::make_unique<LogPainter>();
    view_ = viewAtScale(firstScale, logicalDpiY());
    view_.top = extentOf(data_, Axis::depth).from;
    makeDisplay();
    layOut();
}

void LogPicture::setScale(double scale) {
    DisplayView view = viewAtScale(scale, logicalDpiY());
    view.top = view_.top;
    view.width = view_.width;
    view.height = view_.height;
    view_ = view;
    layOut();
}

void LogPicture::showEquallySpaced() {
    view_.equallySpaced = true;
    layOut();
    view_ = showingAll(view_, data_, bodyHeight());
    layOut();
}

void LogPicture::makeDisplay() {
    if (log_ == nullptr) return;
    display_ = defaultDisplay(*log_, appliedTheme() == Theme::dark ? darkScheme() : lightScheme());
    spaced_ = equallySpaced(display_);
}

double LogPicture::headHeight() const {
    return log_ == nullptr ? 0 : LogPainter::headHeight(shown(), view_);
}

void LogPicture::layOut() {
    const int barWidth = bar_->sizeHint().width();
    const int footHeight = readings_->sizeHint().height();
    bar_->setGeometry(width() - barWidth, 0, barWidth, height() - footHeight);
    readings_->setGeometry(0, height() - footHeight, width(), footHeight);
    view_.width = width() - barWidth;
    view_.height = height() - footHeight;
    moveTo(view_);
}

void LogPicture::moveTo(const DisplayView& view) {
    view_ = heldInside(view, data_, bodyHeight());
    const Extent extent = extentOf(data_, Axis::depth);
    const double beyond = (extent.to - extent.from) * view_.unitsPer() - bodyHeight();
    const QSignalBlocker quiet(bar_);
    bar_->setRange(0, static_cast<int>(std::clamp(std::ceil(beyond), 0.0, 1e9)));
    bar_->setPageStep(static_cast<int>(std::max(1.0, bodyHeight())));
    bar_->setSingleStep(lineUnits);
    bar_->setValue(static_cast<int>(std::lround((view_.top - extent.from) * view_.unitsPer())));
    update();
}

void LogPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (log_ != nullptr && log_->steps() > 0) painter_->paint(painter, shown(), data_, view_);
}

void LogPicture::resizeEvent(QResizeEvent*) {
    const bool whole = view_.equallySpaced;
    layOut();
    if (whole) showEquallySpaced();
}

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
    const Extent extent = extentOf(data_, Axis::depth);
    DisplayView view = view_;
    switch (event->key()) {
    case Qt::Key_Down:
        return moveTo(scrolled(view_, lineUnits));
    case Qt::Key_Up:
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
        view.top = extent.from;
        return moveTo(view);
    case Qt::Key_End:
        view.top = extent.to;
        return moveTo(view);
    default:
        QWidget::keyPressEvent(event);
    }
}

void LogPicture::mouseMoveEvent(QMouseEvent* event) {
    showReadings(event->position().y() - headHeight());
}

void LogPicture::leaveEvent(QEvent*) {
    readings_->clear();
}

/// The theme has changed.
void LogPicture::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        makeDisplay();
        update();
    }
    QWidget::changeEvent(event);
}

void LogPicture::showReadings(double y) {
    const auto reading = log_ == nullptr || y < 0
                             ? std::nullopt
                             : readingsAt(shown(), data_, Axis::depth, view_.positionAt(y));
    if (!reading) return readings_->clear();
    QString text = qt(formatPicture(fromMetres(reading->depth, data_.units), "###0.00") + " " +
                      std::string(depthUnitsText(data_.units)));
    for (const Reading& curve : reading->curves) {
        text += "    " + qt(curve.channel) + " " +
                (curve.value ? qt(formatPicture(*curve.value, "####0.00")) : QString("\u2013"));
    }
    readings_->setText(text);
}

} // namespace tarvik
