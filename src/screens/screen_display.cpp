#include "screens/screen_display.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace tarvik {

/// Pixels are the display's own, dots per inch those before the toolkit scales.
DisplayFacts ScreenDisplay::facts() const {
    constexpr double twipsPerInch = 1440;
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return {};
    const double ratio = screen->devicePixelRatio();
    const auto twips = [](double dotsPerInch) {
        return static_cast<int>(std::lround(twipsPerInch / dotsPerInch));
    };
    return {.widthPixels = static_cast<int>(std::lround(screen->size().width() * ratio)),
            .heightPixels = static_cast<int>(std::lround(screen->size().height() * ratio)),
            .twipsPerPixelX = twips(screen->logicalDotsPerInchX()),
            .twipsPerPixelY = twips(screen->logicalDotsPerInchY()),
            .bitsPerPixel = screen->depth()};
}

} // namespace tarvik
