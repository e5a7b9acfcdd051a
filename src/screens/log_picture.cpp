#include "screens/log_picture.h"

#include "display/annotations.h"
#include "display/default_display.h"
#include "screens/qt_text.h"
#include "screens/readings_strip.h"
#include "screens/theme.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double firstScale = 200;
constexpr int lineUnits = 24; // a step of the wheel or an arrow key

Scheme schemeOfTheme() {
    return appliedTheme() == Theme::dark ? darkScheme() : lightScheme();
}

} // namespace

LogPicture::LogPicture() : bar_(new QScrollBar(Qt::Vertical, this)), readings_(new ReadingsStrip) {
    setObjectName("pictlog");
    setAccessibleName("Logs of the run");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(320, 120);
    bar_->setObjectName("logscroll");
    bar_->setFocusPolicy(Qt::NoFocus);
    readings_->setParent(this);
    readings_->hide();
    connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
        view_.top = extent().from - edgeRoom(view_) + value / view_.unitsPer();
        redraw();
    });
}

void LogPicture::setLog(const ReviewLog* log, std::vector<DepthMark> notes) {
    log_ = log;
    notes_ = std::move(notes);
    second_.reset();
    tried_.reset();
    drag_.reset();
    data_ = log == nullptr ? LogData{} : logDataOf(*log);
    painter_ = log == nullptr ? nullptr : std::make_unique<PairPainter>();
    history_ = DisplayHistory(log == nullptr ? LogDisplay{} : usualDisplay());
    view_ = viewAtScale(firstScale, logicalDpiY(), data_.usualAxis());
    view_.whole = true;
    view_.top = extent().from - edgeRoom(view_);
    readings_->setVisible(log != nullptr);
    readings_->setLegend({});
    readings_->showNone();
    displayChanged();
}

LogDisplay LogPicture::usualDisplay() const {
    LogDisplay usual = defaultDisplay(*log_, schemeOfTheme());
    addMarks(usual.marks, notes_);
    return usual;
}

void LogPicture::compareWith(const ReviewLog* second, Comparison how) {
    second_.reset();
    std::string legend;
    if (second != nullptr && log_ != nullptr) {
        second_ = secondRun(*second, how, schemeOfTheme());
        legend = comparisonLegend(drawn_, *log_, *second, *second_);
        painter_ = std::make_unique<PairPainter>(); // what it keeps of the run before is not that of this one
    }
    readings_->setLegend(qt(legend));
    displayChanged();
}

void LogPicture::setAxis(Axis axis) {
    if (log_ == nullptr || axis == view_.axis || !data_.has(axis)) return;
    view_.perMillimetre = perMillimetreAt(scale(), axis);
    view_.axis = axis;
    view_.top = extent().from - edgeRoom(view_);
    displayChanged();
}

void LogPicture::setScale(double scale) {
    view_.perMillimetre = perMillimetreAt(scale, view_.axis);
    view_.equallySpaced = false;
    displayChanged();
}

void LogPicture::showEquallySpaced() {
    view_.equallySpaced = true;
    displayChanged();
    view_ = showingWhole(view_, extent(), bodyHeight());
    displayChanged();
    showsAll_ = true;
}

void LogPicture::jumpTo(double position) {
    moveTo(jumpedTo(view_, position, bodyHeight()));
    pointer_ = headHeight() + view_.yOf(position);
    showReadings(*pointer_ - headHeight());
}

void LogPicture::readNext(bool up) {
    const double middle = view_.positionAt(bodyHeight() / 2);
    const double from = pointer_ ? view_.positionAt(*pointer_ - headHeight()) : middle;
    const auto next = nextStep(data_, view_.axis, from, up);
    if (!next) return;
    pointer_ = headHeight() + view_.yOf(*next);
    if (*pointer_ < headHeight() || *pointer_ > view_.height) return jumpTo(*next);
    showReadings(*pointer_ - headHeight());
    update();
}

Extent LogPicture::visible() const {
    const Extent shown = visibleInterval(view_, extentOf(data_, view_.axis), bodyHeight());
    return view_.axis == Axis::depth ? shown : depthsBetween(data_, shown);
}

Extent LogPicture::visibleOfBoth() const {
    return visibleInterval(view_, extent(), bodyHeight());
}

void LogPicture::preview(std::optional<LogDisplay> tried) {
    tried_ = std::move(tried);
    displayChanged();
}

void LogPicture::change(LogDisplay next) {
    tried_.reset();
    history_.change(std::move(next));
    displayChanged();
}

void LogPicture::undo() {
    history_.undo();
    displayChanged();
}

void LogPicture::redo() {
    history_.redo();
    displayChanged();
}

void LogPicture::displayChanged() {
    drawn_ = tried_.value_or(history_.current());
    drawn_.scheme = schemeOfTheme();
    readings_->setDisplay(drawn_, data_.units, view_.axis);
    layOut();
    if (changed_) changed_();
}

double LogPicture::headHeight() const {
    return log_ == nullptr ? 0 : PairPainter::headHeight({drawn_, data_, second_}, view_);
}

Extent LogPicture::extent() const {
    return second_ ? extentOfBoth(data_, second_->data, view_.axis) : extentOf(data_, view_.axis);
}

void LogPicture::layOut() {
    const int barWidth = bar_->sizeHint().width();
    // The logs come first: a strip that is higher scrolls.
    const int footHeight = log_ == nullptr ? 0 : std::min(readings_->heightFor(width()), height() * 2 / 5);
    bar_->setGeometry(width() - barWidth, 0, barWidth, height() - footHeight);
    readings_->setGeometry(0, height() - footHeight, width(), footHeight);
    view_.width = width() - barWidth;
    if (second_) view_ = paneOf(view_, second_->how);
    view_.height = height() - footHeight;
    moveTo(view_);
}

void LogPicture::moveTo(const DisplayView& view) {
    const bool zoomed = view.perMillimetre != view_.perMillimetre;
    if (zoomed || view.top != view_.top) showsAll_ = false;
    view_ = heldInside(view, extent(), bodyHeight());
    const Extent all = extent();
    const double first = all.from - edgeRoom(view_);
    const double beyond = (all.to + edgeRoom(view_) - first) * view_.unitsPer() - bodyHeight();
    const QSignalBlocker quiet(bar_);
    bar_->setRange(0, static_cast<int>(std::clamp(std::ceil(beyond), 0.0, 1e9)));
    bar_->setPageStep(static_cast<int>(std::max(1.0, bodyHeight())));
    bar_->setSingleStep(lineUnits);
    bar_->setValue(static_cast<int>(std::lround((view_.top - first) * view_.unitsPer())));
    redraw();
    if (pointer_) showReadings(*pointer_ - headHeight());
    if (zoomed && changed_) changed_();
}

void LogPicture::redraw() {
    picture_ = {};
    update();
}

void LogPicture::render() {
    const double ratio = devicePixelRatioF();
    picture_ = QPixmap(size() * ratio);
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(Qt::transparent);
    QPainter painter(&picture_);
    painter_->paint(painter, {drawn_, data_, second_}, view_);
}

void LogPicture::paintEvent(QPaintEvent*) {
    if (log_ == nullptr || log_->steps() == 0) return;
    if (picture_.isNull()) render();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    paintPointer(painter);
}

/// The line that the readings belong to, and the interval that is being marked.
void LogPicture::paintPointer(QPainter& painter) {
    QColor accent = coloursOf(appliedTheme()).accent;
    const double right = bar_->x();
    if (drag_ && drag_->zooms) {
        QColor band = accent;
        band.setAlpha(60);
        painter.fillRect(
            QRectF(0, std::min(drag_->from, drag_->to), right, std::abs(drag_->to - drag_->from)), band);
    }
    if (!pointer_ || *pointer_ < headHeight() || *pointer_ > view_.height) return;
    painter.setPen(QPen(accent, 1, Qt::DashLine));
    const double y = std::floor(*pointer_) + 0.5;
    painter.drawLine(QLineF(0, y, right, y));
}

void LogPicture::resizeEvent(QResizeEvent*) {
    const bool whole = view_.equallySpaced && showsAll_;
    layOut();
    if (whole) showEquallySpaced();
}

void LogPicture::leaveEvent(QEvent*) {
    pointer_.reset();
    readings_->showNone();
    update();
}

/// The theme has changed.
void LogPicture::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) displayChanged();
    QWidget::changeEvent(event);
}

void LogPicture::showReadings(double y) {
    if (log_ == nullptr || y < 0) return readings_->showNone();
    const double position = view_.positionAt(y);
    std::optional<CursorReading> second;
    if (second_) second = readingsAt(drawn_, second_->data, view_.axis, position);
    readings_->showReadings(readingsAt(drawn_, data_, view_.axis, position), second);
}

} // namespace tarvik
