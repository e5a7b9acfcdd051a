#include "display/live_view.h"

#include "display/live_log.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double startShare = 0.1; // of the body, before the first point
constexpr double aheadShare = 0.2; // beyond the ends of the run, as room for the tool to move on

} // namespace

void LiveView::begin(Axis axis, Direction direction, double scale, double dotsPerInch) {
    view_.axis = axis;
    view_.top = 0;
    view_.unitsPerMillimetre = dotsPerInch / millimetresPerInch;
    scale_ = scale;
    view_.perMillimetre = perMillimetreAt(scale, axis);
    upwards_ = direction == Direction::up;
    following_ = true;
    tool_.reset();
    run_ = {};
}

void LiveView::setArea(double width, double bodyHeight, double pixelRatio) {
    view_.width = width;
    view_.height = bodyHeight;
    bodyHeight_ = bodyHeight;
    pixel_ = 1 / pixelRatio;
    keepToolInSight();
}

void LiveView::setScale(double scale) {
    const double tool = tool_ ? view_.yOf(*tool_) : -1;
    const double fixed = tool >= 0 && tool <= bodyHeight_ ? tool : bodyHeight_ / 2;
    const double there = view_.positionAt(fixed);
    scale_ = scale;
    view_.perMillimetre = perMillimetreAt(scale, view_.axis);
    view_.top = there - fixed / view_.unitsPer();
    keepToolInSight();
}

void LiveView::setAxis(Axis axis) {
    if (axis == view_.axis) return;
    view_.axis = axis;
    view_.perMillimetre = perMillimetreAt(scale_, axis);
    view_.top = 0;
    following_ = true;
    tool_.reset();
    run_ = {};
}

void LiveView::toolAt(double position, const Extent& run) {
    const bool first = !tool_;
    if (!first && position != *tool_) upwards_ = view_.axis == Axis::depth ? position < *tool_ : upwards_;
    tool_ = position;
    run_ = run;
    if (first) placeRun();
    keepToolInSight();
}

/// From the first point on, with nearly the whole body to go; the tool may be out of sight yet.
void LiveView::placeRun() {
    const double y = bodyHeight_ * (upwards() ? 1 - startShare : startShare);
    view_.top = (upwards() ? run_.to : run_.from) - y / view_.unitsPer();
}

void LiveView::keepToolInSight() {
    if (following_ && tool_) moveBy(followShift(view_, bodyHeight_, *tool_, upwards()));
}

void LiveView::moveBy(double units) {
    view_.top = view_.positionAt(std::round(units / pixel_) * pixel_);
}

/// Between the least and the greatest position at the upper edge of the body.
Extent LiveView::tops() const {
    const double ahead = aheadShare * bodyHeight_ / view_.unitsPer();
    const double least = run_.from - ahead;
    return {least, std::max(least, run_.to + ahead - bodyHeight_ / view_.unitsPer())};
}

void LiveView::scroll(double units) {
    const Extent within = tops();
    if (!tool_ || within.to <= within.from) return; // all of it is in sight
    const double before = view_.yOf(*tool_);
    const double least = (std::min(within.from, view_.top) - view_.top) * view_.unitsPer();
    const double most = (std::max(within.to, view_.top) - view_.top) * view_.unitsPer();
    moveBy(std::clamp(units, least, most));
    const double middle = bodyHeight_ / 2;
    const double now = view_.yOf(*tool_);
    const bool nearer = std::abs(now - middle) < std::abs(before - middle) || now == before;
    following_ = nearer && now >= 0 && now <= bodyHeight_;
}

void LiveView::scrollTo(long barValue) {
    scroll(static_cast<double>(barValue - range().at));
}

void LiveView::toFirst() {
    scroll((tops().from - view_.top) * view_.unitsPer());
}

void LiveView::follow() {
    following_ = true;
    keepToolInSight();
}

ScrollRange LiveView::range() const {
    const Extent within = tops();
    const double most = (within.to - within.from) * view_.unitsPer();
    const double at = (view_.top - within.from) * view_.unitsPer();
    return {std::lround(std::min(most, 1e9)), std::max(1L, std::lround(bodyHeight_)),
            std::lround(std::clamp(at, 0.0, std::min(most, 1e9)))};
}

} // namespace tarvik
