#include "drawing/fine_lines.h"

#include <QImage>

#include <cmath>

#include <gtest/gtest.h>

namespace tarvik::test {

namespace {

QImage drawn(const QPolygonF& run, const QPen& pen, bool fine) {
    QImage image(200, 200, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    fine ? drawFineLine(painter, run) : painter.drawPolyline(run);
    EXPECT_EQ(painter.pen(), pen);
    return image;
}

/// How much of the picture is covered, in pixels.
double inkOf(const QImage& image, int fromRow = 0, int toRow = 200) {
    double ink = 0;
    for (int y = fromRow; y < toRow; ++y) {
        for (int x = 0; x < image.width(); ++x) ink += 1 - qGray(image.pixel(x, y)) / 255.0;
    }
    return ink;
}

QPolygonF wiggle() {
    QPolygonF run;
    for (int i = 0; i <= 40; ++i) run.append({50 + 40 * std::sin(i * 1.1), 10 + i * 2.0});
    return run;
}

} // namespace

/// As much ink in the same places as the toolkit's own line of that width, but for what hairlines that share
/// a pixel cover of each other.
TEST(FineLines, CoverWhatTheLineOfThatWidthCovers) {
    const QPolygonF runs[] = {{{50, 5}, {50, 95}}, {{5, 50}, {95, 50}}, {{10, 10}, {90, 90}}, wiggle()};
    for (const double width : {1.0, 1.5, 2.0}) {
        for (const bool dashed : {false, true}) {
            QPen pen(Qt::black, width);
            pen.setCapStyle(Qt::FlatCap);
            if (dashed) pen.setDashPattern({8 / width, 4 / width});
            for (const QPolygonF& run : runs) {
                const QImage own = drawn(run, pen, true);
                const QImage toolkits = drawn(run, pen, false);
                EXPECT_NEAR(inkOf(own) / inkOf(toolkits), 1, 0.18) << width << dashed << run.size();
                for (int row = 20; row < 180; row += 40) {
                    const double expected = inkOf(toolkits, row, row + 40);
                    EXPECT_NEAR(inkOf(own, row, row + 40), expected, 0.2 * expected + 8) << row;
                }
            }
        }
    }
}

} // namespace tarvik::test
