// What the drawing tests draw on, and how they look at it: by structure, never by bytes of a stored picture.
#pragma once

#include "display/display_logs.h"
#include "drawing/log_painter.h"

#include <QGuiApplication>
#include <QImage>

#include <memory>

namespace tarvik::samples {

/// The toolkit without a display; asked for by every test that draws.
inline void needToolkit() {
    static int count = 1;
    static char name[] = "tests";
    static char* words[] = {name, nullptr};
    static const auto application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QGuiApplication>(count, words);
    }();
}

inline constexpr Colour loud{255, 0, 255};

inline LogCurve loudCurve(const std::string& channel, double left, double right) {
    LogCurve curve = curveOf(channel, left, right);
    curve.style.ownColour = loud;
    return curve;
}

inline bool isLoud(QRgb pixel) {
    return qRed(pixel) > 180 && qGreen(pixel) < 140 && qBlue(pixel) > 180;
}

/// Rows from `top` on that show the loud colour between two columns of pixels.
inline std::vector<int> loudRows(const QImage& image, int top, int left, int right) {
    std::vector<int> rows;
    for (int y = top; y < image.height(); ++y) {
        for (int x = left; x < right; ++x) {
            if (!isLoud(image.pixel(x, y))) continue;
            rows.push_back(y);
            break;
        }
    }
    return rows;
}

struct Easel {
    Easel(const LogDisplay& shown, const ReviewLog& drawn, double scale, double dotsPerInch, int width,
          int height)
        : display(shown),
          data(logDataOf(drawn)),
          view(viewAtScale(scale, dotsPerInch)),
          image(width, height, QImage::Format_RGB32) {
        needToolkit();
        view.width = width;
        view.height = height;
        head = static_cast<int>(LogPainter::headHeight(display, view));
        image.fill(Qt::white);
    }
    void paint() {
        QPainter on(&image);
        painter.paint(on, display, data, view);
    }
    [[nodiscard]] Column column(std::size_t track) const { return columnsOf(display, view).tracks[track]; }

    LogDisplay display;
    LogData data;
    DisplayView view;
    QImage image;
    LogPainter painter;
    int head = 0;
};

} // namespace tarvik::samples
