#include "screens/screen_display.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace tarvik {

/// Pixels are the display's own, dots per inch those before the toolkit scales. What it scales by for their
/// sake is in the pixel ratio, together with what the operator's own scale factor asks for.
DisplayFacts ScreenDisplay::facts() const {
    constexpr double twipsPerInch = 1440;
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return {};
    const double ratio = screen->devicePixelRatio();
    bool set = false;
    const double asked = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(&set);
    const double forTheDots = set && asked > 0 ? ratio / asked : ratio;
    const auto twips = [forTheDots](double dotsPerInch) {
        return static_cast<int>(std::lround(twipsPerInch / (dotsPerInch * forTheDots)));
    };
    return {.widthPixels = static_cast<int>(std::lround(screen->size().width() * ratio)),
            .heightPixels = static_cast<int>(std::lround(screen->size().height() * ratio)),
            .twipsPerPixelX = twips(screen->logicalDotsPerInchX()),
            .twipsPerPixelY = twips(screen->logicalDotsPerInchY()),
            .bitsPerPixel = screen->depth()};
}

} // namespace tarvik
