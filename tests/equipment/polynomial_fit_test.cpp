#include "equipment/polynomial_fit.h"

#include "app/doubles.h"

#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace tarvik {
namespace {

using Points = std::vector<FitPoint>;

class PolynomialFitTest : public testing::Test {
  protected:
    PolynomialFit fit(int order, const Points& points) {
        return PolyCalibration_getpolycoefficients(trap, order, points);
    }

    KeptErrors errors;
    ErrorTrap trap{errors};
};

Points parabola(std::initializer_list<double> readings) {
    Points points;
    for (const double x : readings) points.push_back({x, 3 - 2 * x + 0.5 * x * x});
    return points;
}

TEST_F(PolynomialFitTest, TwoPointsMakeALineInFullPrecision) {
    // 0.1 and 0.3 are not singles: a fit through the sums would show it.
    const PolynomialFit line = fit(1, {{0.1, 1.7}, {0.3, 2.9}});
    ASSERT_TRUE(line.ok);
    EXPECT_EQ(line.message, "OK");
    const double slope = (2.9 - 1.7) / (0.3 - 0.1);
    EXPECT_EQ(line.coefficients[1], slope);
    EXPECT_EQ(line.coefficients[0], 2.9 - slope * 0.3);
    EXPECT_NE(line.coefficients[0], 1.7 - slope * 0.1) << "these points tell the first from the second";
}

TEST_F(PolynomialFitTest, ThreePointsGiveTheirParabola) {
    const PolynomialFit curve = fit(2, parabola({-1, 2, 5}));
    ASSERT_EQ(curve.message, "OK");
    const double wanted[] = {3, -2, 0.5, 0};
    for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(curve.coefficients[k], wanted[k], 1e-12) << k;
}

TEST_F(PolynomialFitTest, TheSumsSeeSinglePrecision) {
    // The readings differ by less than a single can hold: unequal as they stand, one and the same in the
    // sums.
    const PolynomialFit curve = fit(2, {{1.0, 1}, {1.0 + 1e-12, 2}, {1.0 + 2e-12, 3}});
    EXPECT_FALSE(curve.ok);
    EXPECT_EQ(curve.message, "Matrix Inversion Error");
    EXPECT_TRUE(errors.errors.empty());

    // A level line through the mean of the references, as singles have it.
    const PolynomialFit line = fit(1, {{-0.5, 0.1}, {0, 0.2}, {0.5, 0.1}});
    const double mean = (double{0.1F} + double{0.2F} + double{0.1F}) / 3;
    EXPECT_NEAR(line.coefficients[0], mean, 1e-15);
    EXPECT_GT(std::abs(mean - 0.4 / 3), 1e-10) << "double copies would give four thirtieths";
}

TEST_F(PolynomialFitTest, RefusesWithItsOwnWords) {
    const char* order = " ERROR: Invalid polynomial order.";
    const char* unique = "Curve Fit Error: Non-unique sensor calibration points. ";
    const struct {
        int order;
        Points points;
        const char* message;
    } cases[] = {
        {2, {{1, 1}, {2, 2}}, order},
        {1, {{1, 1}}, order},
        {1, {}, order},
        {0, parabola({1, 2, 3}), order},
        {21, parabola({1, 2, 3}), order},
        {1, {{1, 1}, {1, 2}}, unique},
        {21, {{4, 1}, {2, 2}, {4, 3}}, unique},                   // before the order is looked at
        {5, {{-1, 1}, {0, 2}, {1, 3}}, "Matrix Inversion Error"}, // more unknowns than points
    };
    for (const auto& c : cases) {
        const PolynomialFit refused = fit(c.order, c.points);
        EXPECT_FALSE(refused.ok) << c.order;
        EXPECT_EQ(refused.message, c.message);
    }
    EXPECT_TRUE(fit(20, {{-1, 1}, {0, 2}, {1, 3}}).ok) << "the highest order";
    EXPECT_TRUE(fit(2, {{1, 5}, {2, 5}, {3, 5}}).ok) << "equal reference values are no fault";
    EXPECT_TRUE(errors.errors.empty());
}

TEST_F(PolynomialFitTest, OrdersAbove10TakeZeroForTheMissingSums) {
    const auto powersOf = [](int power) {
        Points points;
        for (int i = -7; i <= 8; ++i) points.push_back({i / 8.0, std::pow(i / 8.0, power)});
        return points;
    };
    const PolynomialFit ten = fit(10, powersOf(10));
    ASSERT_TRUE(ten.ok);
    EXPECT_NEAR(ten.coefficients[10], 1, 1e-3) << "exact up to here";
    const Points points = powersOf(11);
    const PolynomialFit eleven = fit(11, points);
    ASSERT_TRUE(eleven.ok);
    // Its last equation lacks the 23rd sum, that of x to the 22nd, and holds without it.
    double rest = 0;
    for (const FitPoint& point : points) {
        for (int k = 0; k < 11; ++k)
            rest += std::pow(point.x, 11 + k) * eleven.coefficients[static_cast<std::size_t>(k)];
        rest -= std::pow(point.x, 11) * point.y;
    }
    EXPECT_NEAR(rest, 0, 1e-6);
    EXPECT_GT(std::abs(eleven.coefficients[11] - 1), 0.5) << "so it is another polynomial";
}

TEST_F(PolynomialFitTest, OverflowAndNonsenseGoToTheErrorLog) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const Points bad[] = {
        {{1, 1}, {2, 2}, {1e15, 3}},                                                      // 1e15 to the 21st
        {{1, 1}, {2, 2}, {1e39, 3}},                                                      // no single
        {{1, 1}, {2, 2}, {nan, 3}},  {{1, 1}, {2, infinity}, {3, 3}}, {{1, 1}, {2, nan}}, // the line
        {{1, -1e308}, {2, 1e308}},
    };
    for (const Points& points : bad) {
        errors.errors.clear();
        const PolynomialFit failed = fit(1, points);
        EXPECT_FALSE(failed.ok);
        EXPECT_EQ(failed.message, "");
        ASSERT_EQ(errors.errors.size(), 1U);
        EXPECT_EQ(errors.errors[0].routine, "PolyCalibration_getpolycoefficients");
        EXPECT_EQ(errors.errors[0].number, 6);
    }
    EXPECT_TRUE(fit(1, {{1, 1}, {2, 2}, {1e14, 3}}).ok) << "1e14 to the 21st fits";
}

TEST_F(PolynomialFitTest, OfEqualPivotsTheFirstRowIsTaken) {
    FitMatrix a{};
    a[0] = {3, 1};
    a[1] = {3, 3};
    EXPECT_EQ(PolyCalibration_invdet(trap, a, 2).message, "Matrix inversion OK!");
    EXPECT_EQ(a[0][1], -0.16666666666666666) << "the second row would give ...669";
}

TEST_F(PolynomialFitTest, AZeroPivotIsNoInverse) {
    FitMatrix a{};
    a[0] = {1, 2};
    a[1] = {2, 4};
    const MatrixInversion inversion = PolyCalibration_invdet(trap, a, 2);
    EXPECT_FALSE(inversion.ok);
    EXPECT_EQ(inversion.message, "Matrix Inversion Error");
    EXPECT_FALSE(PolyCalibration_invdet(trap, a, 23).ok);
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_EQ(errors.errors[0].number, 9);
}

} // namespace
} // namespace tarvik
