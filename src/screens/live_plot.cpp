#include "screens/live_plot.h"

#include "display/bullseye.h"
#include "display/columns.h"
#include "display/gauges.h"
#include "drawing/bullseye_painter.h"
#include "drawing/canvas.h"
#include "drawing/gauge_painter.h"
#include "screens/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvik {

namespace {

constexpr double firstScale = 200;
constexpr int lineUnits = 24;           // a step of the wheel or an arrow key
constexpr int markUnits = 7;            // of the mark at the tool
constexpr double planMillimetres = 130; // height at which the letters of the plan view have their usual size

const Scheme& currentScheme() {
    static const Scheme light = lightScheme();
    static const Scheme dark = darkScheme();
    return appliedTheme() == Theme::dark ? dark : light;
}

} // namespace

LivePlot::LivePlot() : bar_(new QScrollBar(Qt::Vertical, this)) {
    setObjectName("pictlive");
    setAccessibleName("Logs of the run that is being logged");
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 120);
    setAttribute(Qt::WA_OpaquePaintEvent);
    bar_->setObjectName("livescroll");
    bar_->setFocusPolicy(Qt::NoFocus);
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        view_.scrollTo(value);
        draw({});
        showMoved();
    });
    view_.begin(Axis::depth, Direction::down, firstScale, logicalDpiY());
    curves_.begin({}, currentScheme());
    laidOut_ = curves_.shown();
}

void LivePlot::begin(const RunHeader& header) {
    toolCode_ = header.tool.code;
    log_.begin(header);
    caption_ = firstCaption(toolCode_);
    curves_.begin(header, currentScheme());
    curves_.show(caption_);
    view_.begin(header.setup.sampling == Sampling::depth ? Axis::depth : Axis::time, header.setup.direction,
                view_.scale(), logicalDpiY());
    redraw();
}

void LivePlot::follow(const AcquisitionRing& ring) {
    if (log_.follow(ring) == 0) return;
    const double before = view_.view().top;
    placeTool();
    if (page() != LivePage::logs) return update();
    // A filter changes points that have been drawn already.
    if (curves_.filtered()) picture_.redraw();
    const auto changed = log_.changed(view_.view().axis);
    if (!isVisible()) return picture_.redraw();
    const bool still = view_.view().top == before && !curves_.filtered() && log_.steps() > 1;
    picture_.update(laidOut_, log_.data(), view_.view(), body().size(), devicePixelRatioF(), changed);
    if (still && changed) {
        const double top = view_.view().yOf(changed->top);
        const double bottom = view_.view().yOf(changed->bottom);
        const QRectF rows(0, top - markUnits - 2, body().width(), bottom - top + 2 * markUnits + 4);
        update(rows.toAlignedRect().translated(0, headHeight()));
    } else {
        update();
    }
    showMoved();
}

void LivePlot::showDisplay(std::string_view caption) {
    caption_ = caption;
    curves_.show(caption);
    redraw();
}

void LivePlot::setScale(double scale) {
    view_.setScale(scale);
    redraw();
}

void LivePlot::setAxis(Axis axis) {
    view_.setAxis(axis);
    redraw();
}

void LivePlot::setEquallySpaced(bool spaced) {
    view_.setEquallySpaced(spaced);
    redraw();
}

void LivePlot::followTool() {
    view_.follow();
    draw({});
    showMoved();
}

void LivePlot::takeTheme() {
    curves_.setScheme(currentScheme());
    redraw();
}

bool LivePlot::change(std::string_view channel, const ScalePair& scale, const std::string& filter) {
    const bool done = curves_.change(channel, scale, filter);
    redraw();
    return done;
}

// ---- Where things are.

/// Whole pixels at every scaling of the screen.
int LivePlot::headHeight() const {
    int height = static_cast<int>(LogPainter::headHeight(laidOut_, view_.view()));
    const double ratio = devicePixelRatioF();
    for (int more = 0; more < 4 && std::fmod(height * ratio, 1) != 0; ++more) ++height;
    return height;
}

QRect LivePlot::body() const {
    const int head = headHeight();
    return {0, head, width() - bar_->sizeHint().width(), std::max(1, height() - head)};
}

void LivePlot::layOut() {
    const bool logs = page() == LivePage::logs;
    const int barWidth = bar_->sizeHint().width();
    bar_->setGeometry(width() - barWidth, 0, barWidth, height());
    bar_->setVisible(logs);
    view_.setArea(body().width(), body().height(), devicePixelRatioF());
}

void LivePlot::placeTool() {
    const LogData log = log_.data();
    const Axis axis = view_.view().axis;
    if (log.steps() > 0) view_.toolAt(log.along(axis).back() * log.unitOf(axis), extentOf(log, axis));
}

void LivePlot::moveBy(double units) {
    view_.scroll(units);
    draw({});
    showMoved();
}

// ---- Drawing.

/// After a change of what is drawn or where.
void LivePlot::redraw() {
    laidOut_ = view_.view().equallySpaced ? equallySpaced(curves_.shown()) : curves_.shown();
    layOut();
    placeTool();
    picture_.redraw();
    draw({});
    showMoved();
}

void LivePlot::draw(const std::optional<Band>& changed) {
    update();
    if (page() != LivePage::logs || !isVisible()) return picture_.redraw();
    picture_.update(laidOut_, log_.data(), view_.view(), body().size(), devicePixelRatioF(), changed);
}

void LivePlot::showMoved() {
    const ScrollRange range = view_.range();
    const QSignalBlocker quiet(bar_);
    bar_->setRange(0, static_cast<int>(range.most));
    bar_->setPageStep(static_cast<int>(range.page));
    bar_->setSingleStep(lineUnits);
    bar_->setValue(static_cast<int>(range.at));
    if (moved_) moved_();
}

void LivePlot::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRectF all(0, 0, width(), height());
    const double millimetre = logicalDpiY() / millimetresPerInch;
    switch (page()) {
    case LivePage::plan:
        return paintBullseye(painter, bullseyeOf(log_.data()), laidOut_.scheme, all,
                             std::max(millimetre, height() / planMillimetres));
    case LivePage::gauges:
        return paintGauges(painter, gaugesOf(laidOut_, log_.data()), laidOut_.scheme, all, millimetre);
    case LivePage::logs:
        return paintLogs(painter, event->rect());
    }
}

void LivePlot::paintLogs(QPainter& painter, const QRect& dirty) {
    const QRect where = body();
    if (picture_.pixmap().isNull()) draw({}); // it was hidden until now
    painter.fillRect(where.right() + 1, 0, width(), height(), qColour(laidOut_.scheme.head));
    if (dirty.top() < where.top()) {
        painter.fillRect(0, 0, where.width(), where.top(), qColour(laidOut_.scheme.head));
        const double head = LogPainter::headHeight(laidOut_, view_.view());
        painter.save();
        painter.translate(0, where.top() - head);
        LogPainter().paintHead(painter, laidOut_, log_.data(), view_.view());
        painter.restore();
    }
    painter.setClipRect(dirty);
    painter.drawPixmap(where.topLeft(), picture_.pixmap());
    if (log_.steps() == 0) return paintWaiting(painter);
    paintTool(painter);
}

/// Where the tool is: a line across, with a mark on either side of the depths.
void LivePlot::paintTool(QPainter& painter) {
    const double height = view_.toolHeight().value_or(-1);
    if (height < 0 || height > body().height()) return;
    const double y = body().top() + std::floor(height) + 0.5;
    const Column depths = columnsOf(laidOut_, view_.view()).depth;
    QColor accent = coloursOf(appliedTheme()).accent;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    const double size = markUnits;
    for (const auto& [edge, inwards] : {std::pair(depths.left, size), std::pair(depths.right(), -size)})
        painter.drawPolygon(QPolygonF({{edge, y - size * 0.8}, {edge + inwards, y}, {edge, y + size * 0.8}}));
    accent.setAlpha(130);
    painter.setPen(accent);
    painter.drawLine(QLineF(0, y, depths.left, y));
    painter.drawLine(QLineF(depths.right(), y, body().width(), y));
}

void LivePlot::paintWaiting(QPainter& painter) {
    const QString words = "Waiting for the first scan that is kept";
    QRect box = fontMetrics().boundingRect(body(), Qt::AlignCenter, words);
    painter.fillRect(box.adjusted(-12, -8, 12, 8), qColour(laidOut_.scheme.surface)); // over grid and depths
    painter.setPen(qColour(laidOut_.scheme.quietText));
    painter.drawText(box, Qt::AlignCenter, words);
}

// ---- The operator's hand.

void LivePlot::resizeEvent(QResizeEvent*) {
    redraw();
}

void LivePlot::wheelEvent(QWheelEvent* event) {
    moveBy(-event->angleDelta().y() / 120.0 * 3 * lineUnits);
    event->accept();
}

void LivePlot::keyPressEvent(QKeyEvent* event) {
    const double page = std::floor(body().height() * 0.9);
    switch (event->key()) {
    case Qt::Key_Down:
        return moveBy(lineUnits);
    case Qt::Key_Up:
        return moveBy(-lineUnits);
    case Qt::Key_PageDown:
        return moveBy(page);
    case Qt::Key_PageUp:
        return moveBy(-page);
    case Qt::Key_Home:
        view_.toFirst();
        draw({});
        return showMoved();
    case Qt::Key_End:
        return followTool();
    default:
        QWidget::keyPressEvent(event);
    }
}

void LivePlot::mouseDoubleClickEvent(QMouseEvent* event) {
    const double head = LogPainter::headHeight(laidOut_, view_.view());
    const double y = event->position().y() - (headHeight() - head);
    const LogCurve* const curve = page() == LivePage::logs && y < head
                                      ? headCurveAt(laidOut_, view_.view(), head, event->position().x(), y)
                                      : nullptr;
    if (curve != nullptr && curveChosen_) curveChosen_(curve->channel);
}

} // namespace tarvik
