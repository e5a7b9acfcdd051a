#include "display/curve_trace.h"
#include "display_logs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

using samples::logOf;

struct Traced {
    ReviewLog log;
    CurveScale scale{ScaleKind::linear, 0, 100};
    DisplayView view = viewAtScale(200, 96);

    [[nodiscard]] CurveTrace trace(const Band& band) const {
        const LogData data = logDataOf(log);
        LogCache cache;
        const CurveSamples samples = cache.samples(data, data.channels.front(), "None");
        return traceCurve(data, samples, scale, view, RowIndex(data, view, band));
    }
    [[nodiscard]] double yOf(double depth) const { return view.yOf(depth); }
};

Traced spikes(double step) {
    Traced traced{logOf(static_cast<std::size_t>(20 / step) + 1, step, {"Gamma"})};
    for (const double depth : {5.0, 12.0}) {
        traced.log.channels[0].values[static_cast<std::size_t>(std::lround(depth / step))] = 80;
    }
    return traced;
}

TEST(Traces, KeepEverySpikeAtItsDepthHoweverDenseTheLog) {
    for (const double step : {0.5, 0.05, 0.01, 0.002}) {
        for (const double scale : {50.0, 200.0, 1000.0}) {
            Traced traced = spikes(step);
            traced.view = viewAtScale(scale, 96);
            const CurveTrace trace = traced.trace({0, traced.yOf(20)});
            for (const double depth : {5.0, 12.0}) {
                double found = -1;
                for (const TracePoint& point : trace.points) {
                    if (point.fraction > 0.79 && std::abs(point.y - traced.yOf(depth)) < 1) found = point.y;
                }
                for (const RowSpan& row : trace.rows) {
                    if (row.to > 0.79 && std::abs(static_cast<double>(row.row) - traced.yOf(depth)) <= 1.01) {
                        found = static_cast<double>(row.row);
                    }
                }
                EXPECT_GE(found, 0) << "step " << step << " at 1:" << scale << ", " << depth << " m";
            }
            EXPECT_LE(trace.points.size() + trace.rows.size(), traced.yOf(20) * 5 + 60)
                << step << " " << scale;
        }
    }
}

TEST(Traces, LeaveGapsOpen) {
    for (const double step : {0.1, 0.01}) {
        Traced traced{logOf(static_cast<std::size_t>(20 / step) + 1, step, {"Gamma"})};
        for (std::size_t i = 0; i < traced.log.steps(); ++i) {
            const double depth = traced.log.depth[i];
            traced.log.channels[0].values[i] = depth > 8 && depth < 10 ? noValue() : 50;
        }
        const CurveTrace trace = traced.trace({0, traced.yOf(20)});
        for (const RowSpan& row : trace.rows) {
            const auto y = static_cast<double>(row.row);
            EXPECT_FALSE(y > traced.yOf(8) + 1 && y + 1 < traced.yOf(10) - 1) << y;
        }
        EXPECT_EQ(trace.rows.empty(), step == 0.1);
        for (std::size_t i = 1; i < trace.points.size(); ++i) {
            const bool crosses = trace.points[i - 1].y < traced.yOf(9) && trace.points[i].y > traced.yOf(9);
            if (crosses) {
                EXPECT_THAT(trace.pieces, ::testing::Contains(i));
            }
        }
    }
}

/// Where a line is begun anew at its very last step no lone value follows it.
TEST(Traces, ALineThatEndsWhereItIsBegunAnewLeavesNoDot) {
    const Traced traced{logOf(65, 0.1, {"Gamma"})};
    const CurveTrace trace = traced.trace({0, traced.yOf(7)});
    ASSERT_EQ(trace.pieces.size(), 1U);
    EXPECT_NEAR(trace.points.back().y, traced.yOf(6.4), 1e-9);
}

TEST(Traces, StepsFarApartAreNotJoined) {
    Traced traced{logOf(100, 0.1, {"Gamma"})};
    for (std::size_t i = 50; i < 100; ++i) traced.log.depth[i] += 3; // three metres without a scan
    EXPECT_NEAR(logDataOf(traced.log).joinLimit, 1, 1e-9);
    const CurveTrace trace = traced.trace({0, traced.yOf(13)});
    for (std::size_t i = 1; i < trace.points.size(); ++i) {
        if (trace.points[i].y - trace.points[i - 1].y > traced.yOf(1)) {
            EXPECT_THAT(trace.pieces, ::testing::Contains(i));
        }
    }
    for (std::size_t i = 60; i < 100; ++i) // the rest in a coarser sampling
        traced.log.depth[i] = traced.log.depth[59] + 1.2 * static_cast<double>(i - 59);
    EXPECT_NEAR(logDataOf(traced.log).joinLimit, 3.6, 1e-9);
}

/// As merged files have them: a curve with a value on every so many steps is one line, and still has its gap.
TEST(Traces, ACoarserCurveIsJoinedButNotAcrossItsGap) {
    for (const auto& [step, every] : {std::pair(0.1, 2), {0.1, 7}, {0.01, 2}, {0.01, 30}}) {
        Traced traced{logOf(static_cast<std::size_t>(20 / step) + 1, step, {"Gamma"})};
        std::vector<float>& values = traced.log.channels[0].values;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double depth = traced.log.depth[i];
            const bool gap = depth > 8 && depth < 10;
            values[i] = gap || i % static_cast<std::size_t>(every) != 0 ? noValue() : 50;
        }
        const CurveTrace trace = traced.trace({0, traced.yOf(20)});
        EXPECT_LT(trace.pieces.size(), 7U) << "a piece for each block of 64 steps";
        for (const RowSpan& row : trace.rows) {
            const auto y = static_cast<double>(row.row);
            EXPECT_FALSE(y > traced.yOf(8) + 1 && y + 1 < traced.yOf(10) - 1) << y;
        }
        if (!trace.rows.empty()) {
            EXPECT_GT(static_cast<double>(trace.rows.size()), traced.yOf(17));
        }
        EXPECT_EQ(trace.rows.empty(), step == 0.1);
        const CurveTrace part = traced.trace({traced.yOf(4.03), traced.yOf(4.04)});
        const auto& points = part.points;
        EXPECT_TRUE(part.rows.empty()
                        ? points.front().y < traced.yOf(4.03) && points.back().y > traced.yOf(4.04)
                        : part.rows.size() > 0)
            << "a line goes through a band between two values";
        EXPECT_EQ(usualStride(values), static_cast<std::size_t>(every));
    }
    // Where there is no rule, what is missing is a gap.
    std::vector<float> random(1000, noValue());
    for (std::size_t i = 0, next = 0; next < random.size(); next += 1 + i * i % 5, ++i) random[next] = 1;
    EXPECT_EQ(usualStride(random), 1U);
    EXPECT_EQ(usualStride(std::vector<float>(100, noValue())), 1U);
}

TEST(Traces, ABandIsDrawnAsPartOfTheWhole) {
    Traced traced = spikes(0.01);
    for (std::size_t i = 0; i < traced.log.steps(); ++i) {
        traced.log.channels[0].values[i] +=
            static_cast<float>(20 + 20 * std::sin(static_cast<double>(i) * 0.05));
    }
    traced.view = viewAtScale(500, 96);
    const CurveTrace whole = traced.trace({0, traced.yOf(20)});
    const CurveTrace part = traced.trace({40, 60});
    ASSERT_FALSE(part.rows.empty());
    ASSERT_EQ(part.rows.front().row, 40);
    for (const RowSpan& row : part.rows) {
        EXPECT_EQ(row.from, whole.rows[static_cast<std::size_t>(row.row)].from);
        EXPECT_EQ(row.to, whole.rows[static_cast<std::size_t>(row.row)].to);
    }
}

TEST(Traces, ALogThatRunsUpIsDrawnInPlace) {
    Traced down = spikes(0.25);
    Traced up = down;
    std::ranges::reverse(up.log.depth);
    std::ranges::reverse(up.log.channels[0].values);
    const CurveTrace one = down.trace({0, down.yOf(20)});
    const CurveTrace other = up.trace({0, up.yOf(20)});
    ASSERT_FALSE(other.points.empty());
    const auto highest = [](const CurveTrace& trace) {
        return std::ranges::max_element(trace.points, {}, &TracePoint::fraction)->y;
    };
    EXPECT_NEAR(std::min(std::abs(highest(other) - down.yOf(5)), std::abs(highest(other) - down.yOf(12))), 0,
                1e-6);
    EXPECT_EQ(one.rows.size(), other.rows.size());
}

} // namespace
} // namespace tarvik
