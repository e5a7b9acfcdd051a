#include "drawing/live_picture.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

bool LivePicture::fits(const DisplayView& view, const QSize& size, double pixelRatio) const {
    return !pixmap_.isNull() && pixmap_.size() == size * pixelRatio && view.axis == view_.axis &&
           view.perMillimetre == view_.perMillimetre && view.unitsPerMillimetre == view_.unitsPerMillimetre &&
           view.equallySpaced == view_.equallySpaced;
}

void LivePicture::update(const LogDisplay& display, const LogData& data, const DisplayView& view,
                         const QSize& size, double pixelRatio, const std::optional<Band>& changed) {
    painted_ = 0;
    const double height = size.height();
    const double shift = (view.top - view_.top) * view.unitsPer();
    const double pixels = shift * pixelRatio;
    const bool whole = std::abs(pixels - std::round(pixels)) < 1e-6;
    if (!fits(view, size, pixelRatio) || !whole || std::abs(shift) >= height) {
        pixmap_ = QPixmap(size * pixelRatio);
        pixmap_.setDevicePixelRatio(pixelRatio);
        view_ = view;
        return paint(display, data, view, {0, height});
    }
    view_ = view;
    if (shift != 0) {
        pixmap_.scroll(0, -static_cast<int>(std::lround(pixels)), pixmap_.rect());
        // A number that was cut at the edge is painted whole again.
        const double more = view.millimetres(3);
        paint(display, data, view, shift > 0 ? Band{height - shift - more, height} : Band{0, -shift + more});
    }
    if (changed) {
        const double width = view.millimetres(1);
        paint(display, data, view, {view.yOf(changed->top) - width, view.yOf(changed->bottom) + width});
    }
}

void LivePicture::paint(const LogDisplay& display, const LogData& data, const DisplayView& view, Band band) {
    band.top = std::max(0.0, std::floor(band.top));
    band.bottom = std::min(pixmap_.height() / pixmap_.devicePixelRatio(), std::ceil(band.bottom));
    if (band.bottom <= band.top) return;
    QPainter painter(&pixmap_);
    painter_.paintRows(painter, display, data, view, band);
    painted_ += band.bottom - band.top;
}

} // namespace tarvik
