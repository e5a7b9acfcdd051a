#include "equipment/calibration_fit.h"

#include "app/doubles.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace tarvik {
namespace {

struct CalibrationFitTest : testing::Test {
    CalibrationFit fit(int order, const std::vector<FitPoint>& points) {
        return fitCalibration(trap, order, points);
    }

    KeptErrors errors;
    ErrorTrap trap{errors};
};

TEST_F(CalibrationFitTest, TheNameTellsTheOrder) {
    EXPECT_EQ(fitName(1), "Linear fit");
    EXPECT_EQ(fitName(2), "2nd order polynomial");
    EXPECT_EQ(fitName(3), "3rd order polynomial");
    EXPECT_EQ(fitName(7), "7th order polynomial");
    EXPECT_EQ(fitName(0), "");
    EXPECT_EQ(fitName(8), "");
}

TEST_F(CalibrationFitTest, ThePointsComeAlong) {
    const auto [ok, message, made] = fit(2, {{0, 1}, {1, 3}, {2, 9}, {3, 20}});
    ASSERT_TRUE(ok) << message;
    EXPECT_EQ(made.state, "Calibrated");
    EXPECT_EQ(made.fitName, "2nd order polynomial");
    EXPECT_EQ(made.order, 2);
    EXPECT_EQ(made.pointCount, 4);
    EXPECT_EQ(made.points[3], std::pair(3.0F, 20.0F));
    EXPECT_EQ(made.coefficients[3], 0);
    // What four evenly spaced points have beside a parabola is their third difference, here 1, in these
    // parts.
    const std::vector<double> found = residuals(made);
    const double wanted[] = {0.05, -0.15, 0.15, -0.05};
    ASSERT_EQ(found.size(), std::size(wanted));
    for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], wanted[i], 1e-5) << i;
}

TEST_F(CalibrationFitTest, RefusesWhatCannotBeKept) {
    EXPECT_FALSE(fit(8, {{0, 1}, {1, 2}, {2, 3}}).ok);
    EXPECT_FALSE(fit(0, {{0, 1}, {1, 2}, {2, 3}}).ok);
    std::vector<FitPoint> many;
    for (int i = 0; i < 20; ++i) many.push_back({i * 1.0, i * 2.0});
    EXPECT_TRUE(fit(1, many).ok);
    many.push_back({20, 40});
    EXPECT_FALSE(fit(1, many).ok);
    EXPECT_EQ(fit(1, {{1, 2}, {1, 3}}).message, "Curve Fit Error: Non-unique sensor calibration points. ");
}

TEST_F(CalibrationFitTest, TurningPointsAreLookedForBetweenThePoints) {
    const auto turn = [&](int order, const std::vector<FitPoint>& points) {
        return turningPoint(fit(order, points).calibration);
    };
    EXPECT_FALSE(turn(1, {{5, 10}, {0, 0}}));
    EXPECT_FALSE(turn(1, {{5, 0}, {0, 10}})) << "falling is in order";
    EXPECT_TRUE(turn(1, {{5, 3}, {0, 3}})) << "one value for all readings";
    EXPECT_NEAR(turn(2, {{-10, 100}, {0, 0}, {10, 100}}).value(), 0, 0.05);
    EXPECT_FALSE(turn(2, {{1, 1}, {5, 25}, {9, 81}})) << "it turns outside";
    // (x - 1)(x - 2)(x - 3) turns at 2 - 1/√3 first.
    EXPECT_NEAR(turn(3, {{0, -6}, {1, 0}, {2, 0}, {3, 0}, {4, 6}}).value(), 1.4226, 0.01);
}

TEST_F(CalibrationFitTest, ALowerOrderComesCloserWhereReadingsAreNearlyEqual) {
    const auto closer = [&](int order, double first) {
        std::vector<FitPoint> points;
        for (int i = 0; i <= 12; ++i) points.push_back({first + i * 0.25, std::sqrt(i)});
        return closerLowerOrder(trap, fit(order, points).calibration);
    };
    EXPECT_EQ(closer(5, 0), std::nullopt);
    EXPECT_EQ(closer(2, 1000), std::nullopt);
    EXPECT_EQ(closer(5, 1000), 2);
    EXPECT_EQ(closerLowerOrder(trap, fit(3, {{1, 1}, {2, 2}, {3, 3}, {4, 4}}).calibration), std::nullopt)
        << "a line is no better when nothing is wrong";
    EXPECT_TRUE(errors.errors.empty());
}

} // namespace
} // namespace tarvik
