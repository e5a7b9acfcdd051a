// Drawing a log of 80,000 steps and 20 channels into a window of 1920 x 1080, against a bare pass over the
// same values that finds the smallest and the greatest of each row of pixels.
#include "display/default_display.h"
#include "drawing/live_picture.h"
#include "drawing/log_painter.h"
#include "race.h"
#include "toolkit.h"

#include <QImage>

#include <cmath>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr int width = 1920;
constexpr int height = 1080;
constexpr std::size_t channelCount = 20;
constexpr double step = 0.02; // metres

struct LargeLog {
    ReviewLog log;
    LogDisplay display;
    LogData data;
    DisplayView view;
    double body = 0;

    LargeLog() {
        needToolkit();
        for (std::size_t i = 0; i < maxReviewSteps; ++i) log.depth.push_back(static_cast<double>(i) * step);
        for (std::size_t c = 0; c < channelCount; ++c) {
            ReviewChannel channel{"Channel " + std::to_string(c + 1), "U" + std::to_string(c / 4), true, {}};
            for (std::size_t i = 0; i < maxReviewSteps; ++i) {
                const double x = static_cast<double>(i) * 0.013 + static_cast<double>(c);
                channel.values.push_back(static_cast<float>(90 * std::sin(x) + 250 * std::sin(x * 0.07)));
            }
            log.channels.push_back(std::move(channel));
        }
        display = defaultDisplay(log, lightScheme());
        data = logDataOf(log);
        view.width = width;
        view.height = height;
        body = height - LogPainter::headHeight(display, view);
        show(1);
    }
    /// That part of the log from its top.
    void show(double part) {
        const double metres = static_cast<double>(maxReviewSteps) * step * part;
        view.perMillimetre = metres * view.unitsPerMillimetre / body;
    }
};

/// The least that any painter has to do: every value looked at once.
float bareMinMax(const LargeLog& large, std::size_t steps) {
    const auto rows = static_cast<std::size_t>(large.body);
    float sum = 0;
    for (const ReviewChannel& channel : large.log.channels) {
        for (std::size_t row = 0; row < rows; ++row) {
            float least = 1e30F;
            float most = -1e30F;
            for (std::size_t i = row * steps / rows; i < (row + 1) * steps / rows; ++i) {
                least = std::min(least, channel.values[i]);
                most = std::max(most, channel.values[i]);
            }
            sum += most - least;
        }
    }
    return sum;
}

/// Arguments: the part of the log that is shown, as 1/n, and the pixel ratio of the screen.
void fullRedraw(benchmark::State& state) {
    LargeLog large;
    const double part = 1 / static_cast<double>(state.range(0));
    large.show(part);
    const auto ratio = static_cast<int>(state.range(1)); // pixels to a unit of the screen, each way
    QImage image(width * ratio, height * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    LogPainter painter;
    const auto draw = [&] {
        QPainter on(&image);
        painter.paint(on, large.display, large.data, large.view);
    };
    draw();
    const auto steps = static_cast<std::size_t>(static_cast<double>(maxReviewSteps) * part);
    race(state, draw, [&] { benchmark::DoNotOptimize(bareMinMax(large, steps)); });
}
BENCHMARK(fullRedraw)
    ->ArgNames({"1/part", "ratio"})
    ->ArgsProduct({{1, 4, 16, 40, 160}, {1, 2}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Scrolling on by one row of pixels, against drawing all of it again.
void scrollByOneRow(benchmark::State& state) {
    LargeLog large;
    large.show(1 / static_cast<double>(state.range(0)));
    const QSize size(width, static_cast<int>(large.body));
    LivePicture scrolling;
    LivePicture drawing;
    DisplayView view = large.view;
    scrolling.update(large.display, large.data, view, size, 1, {});
    race(
        state,
        [&] {
            view.top += 1 / view.unitsPer();
            scrolling.update(large.display, large.data, view, size, 1, {});
        },
        [&] {
            drawing.redraw();
            drawing.update(large.display, large.data, view, size, 1, {});
        });
}
BENCHMARK(scrollByOneRow)->ArgName("1/part")->Arg(4)->Arg(40)->UseManualTime()->Unit(benchmark::kMillisecond);

/// One scan more on a live plot of 2,000 points, against drawing all of it again.
void appendOneScan(benchmark::State& state) {
    LargeLog large;
    constexpr std::size_t points = 2000;
    LogData data = large.data;
    data.depth = data.depth.first(points);
    for (ChannelData& channel : data.channels) channel.values = channel.values.first(points);
    DisplayView view = large.view;
    view.perMillimetre = static_cast<double>(points) * step * view.unitsPerMillimetre / large.body;
    const QSize size(width, static_cast<int>(large.body));
    const double last = data.depth.back();
    LivePicture live;
    LivePicture drawing;
    live.update(large.display, data, view, size, 1, {});
    race(
        state,
        [&] {
            ++data.revision;
            live.update(large.display, data, view, size, 1, Band{last - step, last});
        },
        [&] {
            drawing.redraw();
            drawing.update(large.display, data, view, size, 1, {});
        });
}
BENCHMARK(appendOneScan)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
