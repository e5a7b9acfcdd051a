#include "app/start_up.h"
#include "base/depth_units.h"
#include "base/review_log.h"
#include "base/text.h"
#include "display/curve_scale.h"
#include "display/minmax_pyramid.h"
#include "display/scheme.h"
#include "display/ticks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace tarvik {
namespace {

TEST(CurveScales, PutValuesAcrossTheTrack) {
    struct Case {
        CurveScale scale;
        double value, fraction;
    };
    const std::vector<Case> cases{
        {{ScaleKind::linear, 0, 150}, 75, 0.5},
        {{ScaleKind::linear, 0, 150}, 225, 1.5},
        {{ScaleKind::linear, 60, 0}, 15, 0.75},
        {{ScaleKind::linear, 0.45, -0.15}, 0.45, 0},
        {{ScaleKind::logarithmic, 0.2, 2000}, 20, 0.5},
        {{ScaleKind::logarithmic, 2000, 0.2}, 2, 0.75},
        {{ScaleKind::logarithmic, 0.2, 2000}, 0, -ScaleMap::furthest},
        {{ScaleKind::logarithmic, 2000, 0.2}, -1, ScaleMap::furthest},
        {{ScaleKind::linear, 0, 1}, 1e30, ScaleMap::furthest},
        {{ScaleKind::linear, 5, 5}, 7, 0},
        {{ScaleKind::logarithmic, 0, 10}, 7, 0},
    };
    for (const Case& each : cases) {
        EXPECT_NEAR(ScaleMap(each.scale).fraction(each.value), each.fraction, 1e-9) << each.value;
    }
    EXPECT_EQ(backupOf({ScaleKind::linear, 0, 150}, 1), (CurveScale{ScaleKind::linear, 150, 300}));
    EXPECT_NEAR(backupOf({ScaleKind::logarithmic, 1, 100}, -1).left, 0.01, 1e-12);
}

TEST(CurveScales, EndsReadAsOnAPaperLog) {
    const std::vector<std::pair<double, std::string>> cases{
        {150, "150"},       {2.95, "2.95"},  {0.2, "0.2"},
        {-10000, "-10000"}, {0, "0"},        {2.9500000477, "2.95"},
        {0.001, "0.001"},   {1e-7, "1e-07"}, {-1.0000000409184788e+35, "-1e+35"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(scaleEndText(value), text);
}

TEST(Ticks, StandThreeToEightMillimetresApartAtEveryScaleOfTheList) {
    for (const std::string_view entry : logScales) {
        const double perMillimetre = *parseNumber(entry.substr(2)) / 1000;
        for (const double unit : {1.0, metresPerFoot}) {
            const TickSpacing spacing = depthTickSpacing(perMillimetre / unit);
            const double apart = spacing.fine * unit / perMillimetre;
            EXPECT_GE(apart, 3 - 1e-9) << entry;
            EXPECT_LE(apart, 8) << entry;
            EXPECT_GE(spacing.medium * unit / perMillimetre, 6) << entry;
        }
    }
    const TickSpacing usual = depthTickSpacing(0.2);
    EXPECT_EQ((std::vector{usual.fine, usual.medium, usual.heavy}), (std::vector<double>{1, 5, 10}));
}

TEST(Ticks, FallOnRoundDepthsOfEitherSign) {
    const auto ticks = ticksBetween(-3.2, 10.4, {1, 5, 10});
    ASSERT_EQ(ticks.size(), 14U);
    EXPECT_EQ(ticks.front().position, -3);
    EXPECT_EQ(ticks.back().position, 10);
    EXPECT_EQ(ticks[3].strength, TickStrength::heavy);
    EXPECT_EQ(ticks[8].strength, TickStrength::medium);
    EXPECT_EQ(depthTickText(0.25, depthTickSpacing(0.01)), "0.3");
    EXPECT_EQ(depthTickText(1250, depthTickSpacing(1)), "1250");
    EXPECT_EQ(timeTickText(3725, {1, 5, 10}), "1:02:05");
    EXPECT_EQ(timeTickText(89.9999999, {1, 5, 10}), "1:30");
    EXPECT_EQ(timeTickText(61.5, {0.1, 0.5, 1}), "1:01.5");
    EXPECT_TRUE(ticksBetween(1e300, 1.1e300, {1, 5, 10}).empty()) << "no end of them";
}

TEST(Pyramid, FindsWhatLookingAtEveryValueFinds) {
    std::mt19937 dice(5);
    std::uniform_real_distribution<float> values(-100, 100);
    for (const std::size_t size : {1U, 7U, 8U, 65U, 513U, 5000U}) {
        std::vector<float> channel(size);
        for (float& value : channel) value = dice() % 5 == 0 ? noValue() : values(dice);
        const MinMaxPyramid pyramid(channel);
        for (int turn = 0; turn < 200; ++turn) {
            std::size_t first = dice() % (size + 1);
            std::size_t last = dice() % (size + 1);
            if (first > last) std::swap(first, last);
            const ValueRange plain = rangeOf(std::span(channel).subspan(first, last - first));
            const ValueRange quick = pyramid.range(channel, first, last);
            ASSERT_EQ(quick.empty(), plain.empty());
            ASSERT_EQ(quick.least, plain.least) << size << ": " << first << " to " << last;
            ASSERT_EQ(quick.most, plain.most);
        }
    }
}

double lightness(Colour colour) {
    return 0.2126 * colour.red + 0.7152 * colour.green + 0.0722 * colour.blue;
}

TEST(Schemes, TheStrongestGridIsFainterThanTheFaintestCurve) {
    for (const Scheme& scheme : {lightScheme(), darkScheme(), paperScheme()}) {
        const double ground = lightness(scheme.surface);
        const double grid = std::abs(lightness(scheme.gridHeavy) - ground);
        EXPECT_LT(std::abs(lightness(scheme.gridFine) - ground),
                  std::abs(lightness(scheme.gridMedium) - ground));
        EXPECT_LT(std::abs(lightness(scheme.gridMedium) - ground), grid);
        for (const Colour& ink : scheme.inks)
            EXPECT_GT(std::abs(lightness(ink) - ground), grid) << scheme.name;
    }
}

} // namespace
} // namespace tarvik
