#include "drawing/live_picture.h"
#include "drawing/log_painter.h"
#include "easel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

using samples::Easel;
using samples::isLoud;
using samples::loudCurve;
using samples::loudRows;

ReviewLog waves(double step = 0.02, std::size_t steps = 3000) {
    ReviewLog log = samples::logOf(steps, step, {"Gamma", "Res", "Azimuth"});
    for (std::size_t c = 0; c < 3; ++c) {
        for (std::size_t i = 0; i < steps; ++i) {
            const double x = static_cast<double>(i) * 0.05 + static_cast<double>(c);
            log.channels[c].values[i] =
                i % 400 > 380 ? noValue() : static_cast<float>(60 + 80 * std::sin(x) * std::sin(x / 9));
        }
    }
    return log;
}

/// Pixels that differ plainly. The ends of dashes and the edges of a clip may be a shade off.
int unlike(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 48;
        }
    }
    return count;
}

LogDisplay everyStyle() {
    LogDisplay display =
        samples::displayOf({{samples::curveOf("Gamma", 0, 100)},
                            {samples::curveOf("Res", 1, 1000), samples::curveOf("Gamma", 150, 0)},
                            {samples::curveOf("Azimuth", 0, 360)}});
    display.tracks[0].curves[0].style.fill = FillKind::left;
    display.tracks[1].grid = ScaleKind::logarithmic;
    display.tracks[1].curves[0].scale.kind = ScaleKind::logarithmic;
    display.tracks[1].curves[0].style.line = LineKind::dashed;
    display.tracks[1].curves[1].style.line = LineKind::dashDot;
    display.tracks[2].curves[0].style.line = LineKind::points;
    display.marks = {{7, MarkKind::casing, "Casing"}};
    return display;
}

TEST(LogPainter, StepsStandAtTheirDepthsAtEveryResolutionAndScale) {
    ReviewLog log = samples::logOf(401, 0.05, {"Gamma"});
    for (std::size_t i = 0; i < log.steps(); ++i) {
        // 20 in the left part of the track above 5 m and below 12 m, 80 between.
        log.channels[0].values[i] = log.depth[i] >= 5 && log.depth[i] < 12 ? 80 : 20;
    }
    const LogDisplay display = samples::displayOf({{loudCurve("Gamma", 0, 100)}});
    for (const double dotsPerInch : {96.0, 300.0}) {
        for (const double scale : {50.0, 100.0, 200.0}) {
            const double perMetre = dotsPerInch / 25.4 * 1000 / scale;
            Easel easel(display, log, scale, dotsPerInch, 600, static_cast<int>(20 * perMetre) + 600);
            easel.paint();
            const Column track = easel.column(0);
            const auto at = [&](double part) { return static_cast<int>(track.left + track.width * part); };
            const auto right = loudRows(easel.image, easel.head, at(0.75), at(0.85));
            ASSERT_FALSE(right.empty());
            // The curve turns within one step, 5 cm.
            const double tolerance = 0.05 * perMetre + 2;
            EXPECT_NEAR(right.front(), easel.head + 5 * perMetre, tolerance)
                << scale << " at " << dotsPerInch;
            EXPECT_NEAR(right.back(), easel.head + 12 * perMetre, tolerance);
            EXPECT_NEAR(static_cast<double>(right.size()), 7 * perMetre, 2 * tolerance);
        }
    }
}

/// Bytes out of step, or a slip in a LAS file, give depths that no cable has.
TEST(LogPainter, AFarOffDepthCostsNoMoreThanWhatIsInSight) {
    ReviewLog log = samples::logOf(3, 5, {"Gamma"}); // steps so few that all are joined
    for (const double far : {2e6, 1e15}) {
        log.depth.back() = far;
        log.channels[0].values = {500, 500, 500};
        LogDisplay display = samples::displayOf({{loudCurve("Gamma", 0, 100)}});
        display.tracks[0].curves[0].offScale = OffScale::cut;
        Easel easel(display, log, 200, 96, 500, 300);
        easel.paint();
        const Column track = easel.column(0);
        EXPECT_FALSE(loudRows(easel.image, easel.head, static_cast<int>(track.left + track.width) - 5,
                              static_cast<int>(track.left + track.width))
                         .empty());
    }
}

TEST(LogPainter, GapsStayEmptyAndOffScaleValuesComeRound) {
    ReviewLog log = samples::logOf(1001, 0.02, {"Gamma"});
    for (std::size_t i = 0; i < log.steps(); ++i) {
        const double depth = log.depth[i];
        log.channels[0].values[i] = depth > 4 && depth < 8 ? noValue() : depth >= 12 ? 130 : 50;
    }
    LogDisplay display = samples::displayOf({{loudCurve("Gamma", 0, 100)}});
    display.tracks[0].curves[0].style.width = 0.6; // loud in its backups, too
    for (const bool wrap : {true, false}) {
        display.tracks[0].curves[0].offScale = wrap ? OffScale::wrap : OffScale::cut;
        for (const double scale : {100.0, 400.0}) {
            const double perMetre = 96 / 25.4 * 1000 / scale;
            Easel easel(display, log, scale, 96, 500, static_cast<int>(20 * perMetre));
            easel.paint();
            const Column track = easel.column(0);
            const auto middle =
                loudRows(easel.image, easel.head, static_cast<int>(track.left + track.width * 0.45),
                         static_cast<int>(track.left + track.width * 0.55));
            for (const int y : middle) {
                const double depth = (y - easel.head) / perMetre;
                EXPECT_FALSE(depth > 4.1 && depth < 7.9) << depth;
            }
            const auto backup = loudRows(easel.image, static_cast<int>(easel.head + 13 * perMetre),
                                         static_cast<int>(track.left + track.width * 0.28),
                                         static_cast<int>(track.left + track.width * 0.32));
            EXPECT_EQ(backup.empty(), !wrap) << scale;
            const auto marks = loudRows(easel.image, static_cast<int>(easel.head + 13 * perMetre),
                                        static_cast<int>(track.left + track.width) - 5,
                                        static_cast<int>(track.left + track.width));
            EXPECT_EQ(marks.empty(), wrap) << "what is cut off leaves a mark at the edge, 1:" << scale;
        }
    }
}

/// Whatever its line, a curve that goes round is not taken for one on its scale.
TEST(LogPainter, BackupsAreSparserThanAnyCurve) {
    ReviewLog log = samples::logOf(1001, 0.02, {"Gamma"});
    for (std::size_t i = 0; i < log.steps(); ++i) log.channels[0].values[i] = log.depth[i] < 10 ? 50 : 150;
    for (const LineKind kind : {LineKind::solid, LineKind::dashed, LineKind::dashDot, LineKind::dotted}) {
        LogDisplay display = samples::displayOf({{loudCurve("Gamma", 0, 100)}});
        display.tracks[0].curves[0].style.line = kind;
        for (const double dots : {96.0, 300.0}) {
            const double perMetre = dots / 25.4 * 5;
            Easel easel(display, log, 200, dots, 900, static_cast<int>(22 * perMetre));
            easel.paint();
            const Column track = easel.column(0);
            const auto rows =
                loudRows(easel.image, easel.head, static_cast<int>(track.left + track.width * 0.45),
                         static_cast<int>(track.left + track.width * 0.55));
            const auto border = easel.head + 10 * perMetre;
            const auto onScale = std::ranges::count_if(rows, [&](int y) { return y < border - perMetre; });
            const auto around = std::ranges::count_if(rows, [&](int y) { return y > border + perMetre; });
            EXPECT_GT(around, 0);
            EXPECT_GT(onScale, 1.3 * static_cast<double>(around)) << static_cast<int>(kind) << " at " << dots;
        }
    }
}

/// What fills lies below every line; a value at the end of its scale lies beside the border, not under it.
TEST(LogPainter, NoCurveHidesBehindAFillOrABorder) {
    ReviewLog log = samples::logOf(401, 0.05, {"Gamma", "Low", "High"});
    for (std::size_t i = 0; i < log.steps(); ++i) {
        log.channels[0].values[i] = 50;
        log.channels[1].values[i] = 0;
        log.channels[2].values[i] = 100;
    }
    LogDisplay display = samples::displayOf(
        {{loudCurve("Gamma", 0, 100), samples::curveOf("High", 0, 200)}, {loudCurve("Low", 0, 100)}});
    display.tracks[0].curves[1].style.fill = FillKind::right;
    display.tracks[0].curves[0].scale = {ScaleKind::linear, 0, 66};
    for (Track& track : display.tracks) track.curves[0].style.width = 0.6;
    for (const double dotsPerInch : {96.0, 300.0}) {
        Easel easel(display, log, 200, dotsPerInch, 600, 500);
        easel.paint();
        for (const auto& [track, part] : {std::pair(0, 0.757), std::pair(1, 0.0)}) {
            const Column column = easel.column(static_cast<std::size_t>(track));
            const auto x = static_cast<int>(column.left + column.width * part);
            const auto rows = loudRows(easel.image, easel.head + 20, x - 4, x + 5);
            EXPECT_GT(rows.size(), 0.9 * (easel.image.height() - easel.head - 50)) << track;
        }
    }
}

TEST(LogPainter, BandsTogetherAreTheWholePicture) {
    const ReviewLog log = waves();
    const LogDisplay display = everyStyle();
    for (const double scale : {100.0, 200.0, 500.0}) {
        Easel whole(display, log, scale, 96, 700, 500);
        Easel bands(display, log, scale, 96, 700, 500);
        QPainter one(&whole.image);
        whole.painter.paintBody(one, display, whole.data, whole.view, 500);
        QPainter other(&bands.image);
        for (const Band& band : {Band{0, 37}, Band{37, 38}, Band{38, 300}, Band{300, 500}}) {
            bands.painter.paintRows(other, display, bands.data, bands.view, band);
        }
        EXPECT_LT(unlike(whole.image, bands.image), 40) << "1:" << scale;
    }
}

TEST(LogPainter, LeavesThePainterAsItWas) {
    const ReviewLog log = waves();
    Easel easel(everyStyle(), log, 200, 96, 400, 300);
    QPainter on(&easel.image);
    on.setPen(Qt::red);
    on.translate(3, 4);
    easel.painter.paint(on, easel.display, easel.data, easel.view);
    EXPECT_EQ(on.pen().color(), QColor(Qt::red));
    EXPECT_EQ(on.transform().dx(), 3);
    EXPECT_FALSE(on.hasClipping());
}

TEST(LogPainter, DrawsTheSameBodyWhateverTheHeadsSay) {
    const ReviewLog log = waves();
    LogDisplay plain = everyStyle();
    LogDisplay wordy = plain;
    wordy.tracks[0].curves[0].unit = std::string(200, 'W');
    wordy.tracks[2].curves[0].calibrated = false;
    Easel one(plain, log, 200, 96, 700, 500);
    Easel other(wordy, log, 200, 96, 700, 500);
    one.paint();
    other.paint();
    ASSERT_EQ(one.head, other.head);
    EXPECT_NE(one.image, other.image);
    EXPECT_EQ(one.image.copy(0, one.head, 700, 500), other.image.copy(0, one.head, 700, 500));
}

TEST(LogPainter, AnEmptyLogAndATinyWindowAreDrawnToo) {
    const ReviewLog empty;
    Easel nothing(defaultDisplay(empty, darkScheme()), empty, 200, 96, 300, 200);
    nothing.paint();
    const ReviewLog log = waves();
    Easel tiny(everyStyle(), log, 1, 96, 5, 3);
    tiny.paint();
    Easel spaced(everyStyle(), log, 200, 96, 600, 400);
    spaced.view.equallySpaced = true;
    spaced.view.axis = Axis::time;
    spaced.view.perMillimetre = 2;
    spaced.paint();
    EXPECT_NE(spaced.image.pixel(300, 300), 0U);
}

TEST(LivePicture, ShowsAfterScrollingAndAppendingWhatAFreshPictureShows) {
    samples::needToolkit();
    const ReviewLog log = waves(0.05, 600);
    const LogData all = logDataOf(log);
    const LogDisplay display = everyStyle();
    DisplayView view = viewAtScale(200, 96);
    view.width = 500;
    const QSize size(500, 300);
    LivePicture live;
    LivePicture fresh;
    double painted = 0;
    for (std::size_t steps = 100; steps <= 600; ++steps) {
        LogData data = all;
        data.depth = all.depth.first(steps);
        data.time = all.time.first(steps);
        for (ChannelData& channel : data.channels) channel.values = channel.values.first(steps);
        const double end = data.depth.back();
        if (view.yOf(end) > 290) view.top = view.positionAt(60);
        live.update(display, data, view, size, 1, Band{data.depth[steps - 2], end});
        if (steps > 100) painted += live.painted();
        if (steps % 50 != 0) continue;
        fresh.redraw();
        fresh.update(display, data, view, size, 1, {});
        EXPECT_LT(unlike(live.pixmap().toImage(), fresh.pixmap().toImage()), 60) << steps;
        EXPECT_EQ(fresh.painted(), 300);
    }
    EXPECT_LT(painted / 500, 30) << "rows painted for a scan";
}

} // namespace
} // namespace tarvik
