#include "lcu/deviation.h"

#include "lcu/run_rig.h"
#include "simulator/hole_path.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr double degree = std::numbers::pi / 180;

CurrentScan scanOf(std::array<double, 3> field, std::array<double, 3> gravity) {
    CurrentScan scan;
    for (std::size_t i = 0; i < 3; ++i) {
        scan.channels[1 + i] = static_cast<float>(field[i] * 10000);
        scan.channels[4 + i] = static_cast<float>(gravity[i] * 10000);
    }
    return scan;
}

/// East and north after one step of a metre with this azimuth (degrees) in a horizontal hole.
HoleWay oneStep(double azimuth, double inclination = 0, Direction direction = Direction::down,
                Sampling sampling = Sampling::depth) {
    CurrentScan scan;
    scan.channels[7] = static_cast<float>(azimuth * 10000);
    scan.channels[8] = static_cast<float>(inclination * 10000);
    RunSetup run;
    run.sampling = sampling;
    run.interval = 100;
    run.direction = direction;
    HoleWay way;
    CalcHoleEastNorth(scan, run, way);
    return way;
}

} // namespace

TEST(Deviation, InclinationOfTheAxes) {
    EXPECT_EQ(CalcInclination(scanOf({}, {0, 0, 1})), 0);
    EXPECT_EQ(CalcInclination(scanOf({}, {1, 0, 0})), -900000);
    EXPECT_NEAR(CalcInclination(scanOf({}, {-1, 0.01, 0})), 900000 - 5730,
                1);                                            // upwards: 180 degrees are added
    EXPECT_EQ(CalcInclination(scanOf({}, {0.0001, 0, 1})), 0); // too little to divide by
    EXPECT_NEAR(CalcInclination(scanOf({}, {0.5, 0.5, 0})), -450000, 0.1);
    EXPECT_NEAR(CalcInclination(scanOf({}, {-0.5, 0, 0.5})), 450000, 0.1);
}

TEST(Deviation, AzimuthWithoutAHorizontalFieldIsNorth) {
    EXPECT_EQ(CalcAzimuth(scanOf({}, {1, 0, 0}), 12), 3600000);
    EXPECT_EQ(CalcAzimuth(scanOf({0.5, 0, 0}, {1, 0, 0}), 12), 3600000); // straight down
}

/// Against the angle as any other program would compute it, over directions all round and two faces of the
/// tool.
TEST(Deviation, AzimuthAgreesWithTheArcTangent) {
    for (int azimuth = 0; azimuth < 360; azimuth += 3) {
        for (const double face : {0.3, 4.0}) {
            const double a = azimuth * degree;
            const double dip = 60 * degree;
            const double tilt = 35 * degree; // of the hole from the vertical
            // Level axes: x ahead and down the hole, u up across it, r to the right of it; north is where the
            // field is.
            const double ahead = std::cos(a) * std::cos(dip);
            const double right = -std::sin(a) * std::cos(dip);
            const double mx = ahead * std::sin(tilt) + std::sin(dip) * std::cos(tilt);
            const double up = ahead * std::cos(tilt) - std::sin(dip) * std::sin(tilt);
            const double gx = std::cos(tilt), gUp = -std::sin(tilt);
            const auto turned = [&](double u, double r) {
                return std::pair{u * std::cos(face) - r * std::sin(face),
                                 u * std::sin(face) + r * std::cos(face)};
            };
            const auto [my, mz] = turned(up, right);
            const auto [gy, gz] = turned(gUp, 0);
            const CurrentScan scan = scanOf({mx, my, mz}, {gx, gy, gz});
            const double g = std::hypot(gx, gy, gz);
            const double north = (gy * gy + gz * gz) * mx - my * gx * gy - mz * gx * gz;
            double expected = std::atan2((gy * mz - gz * my) * g, north) / degree;
            if (expected < -0.01) expected += 360;
            EXPECT_NEAR(CalcAzimuth(scan, 0) * 0.0001, expected, 0.001) << azimuth << " " << face;
            EXPECT_NEAR(CalcAzimuth(scan, 20) * 0.0001, expected + 20, 0.001); // not brought back below 360
        }
    }
}

TEST(Deviation, StepsFollowTheCompass) {
    const struct {
        double azimuth, east, north;
    } steps[] = {{0, 0, 1},     {30, 0.5, 0.8660254},
                 {90, 1, 0},    {150, 0.5, -0.8660254},
                 {180, 0, -1},  {225, -0.7071068, -0.7071068},
                 {270, -1, 0},  {300, -0.8660254, 0.5},
                 {360, 0, 1},   {-0.01, 0, 0},
                 {360.01, 0, 0}};
    for (const auto& step : steps) {
        const HoleWay way = oneStep(step.azimuth);
        EXPECT_NEAR(way.east, step.east, 1e-6) << step.azimuth;
        EXPECT_NEAR(way.north, step.north, 1e-6) << step.azimuth;
    }
    EXPECT_NEAR(oneStep(90, -60).east, 0.5, 1e-6);
    EXPECT_NEAR(oneStep(90, 0, Direction::up).east, -1, 1e-6);
    EXPECT_EQ(oneStep(90, 0, Direction::down, Sampling::time).east, 0);
}

TEST(Deviation, TheWayAtTheEndIsThatOfTheLastMeasuredScan) {
    ReviewLog run;
    run.channels = {{"East", "M", true, {1, 2, 0}},
                    {"North", "M", true, {3, 4, 0}},
                    {"Total field", "", true, {5, 5, 0}}};
    EXPECT_EQ(wayAtEnd(run).east, 2);
    EXPECT_EQ(wayAtEnd(run).north, 4);
    run.reversed = true;
    EXPECT_EQ(wayAtEnd(run).east, 1);
    EXPECT_EQ(wayAtEnd({}).east, 0);
}

namespace {

float lastOf(const ReviewLog& log, std::string_view name) {
    const auto channel = std::ranges::find(log.channels, name, &ReviewChannel::name);
    return channel == log.channels.end() ? NAN : channel->values.back();
}

} // namespace

/// A run down the simulated hole, whose true path is known, and an append that goes on with the way.
TEST(Deviation, TheLoggedPathFollowsTheHole) {
    for (const auto model : {lcusim::LcuModel::lcu2Plus, lcusim::LcuModel::lcu4}) {
        RunRig rig({.model = model, .tool = "K417", .startDepth = 100});
        rig.order.setup.interval = 10;
        rig.view.stopAfterKept = 150;
        rig.view.stopAfterMs = 1'200'000;
        ASSERT_EQ(rig.startLogging(), RunResult::finished);
        const auto first = rig.reader.Tarvikfileopen(rig.file());
        ASSERT_TRUE(first);
        const double depth = first->depth.back();
        const lcusim::HolePath& hole = rig.engine->holePath();
        const lcusim::HoleDirection truth = hole.at(depth);

        // Angles: one count in 10,000 of the field's or gravity's cross component; the tool moves on while it
        // measures.
        EXPECT_NEAR(lastOf(*first, "Inclination") + 90, truth.fromVertical, 0.1);
        EXPECT_NEAR(std::remainder(lastOf(*first, "Azimuth") - truth.azimuth, 360), 0, 0.5);
        EXPECT_NEAR(lastOf(*first, "Total field"), hole.totalField(), 0.01);

        // The way: steps of a tenth of a metre along a straight line each, the direction taken at the step's
        // end. The first two scans carry no values and lengthen nothing; the box sends one scan a step from
        // the third on.
        const double begun = first->depth.front() - 2 * 0.1;
        const lcusim::HoleOffset way = hole.offset(begun, depth);
        const double length = std::hypot(way.east, way.north);
        EXPECT_GT(length, 1);
        EXPECT_NEAR(lastOf(*first, "East"), way.east, 0.01 + 0.01 * length);
        EXPECT_NEAR(lastOf(*first, "North"), way.north, 0.01 + 0.01 * length);

        const float east = lastOf(*first, "East"), north = lastOf(*first, "North");
        rig.view.choice = RunChoice::append;
        rig.view.record = true;
        rig.view.started = false;
        rig.view.stopAfterKept = 1;
        ASSERT_EQ(rig.startLogging(), RunResult::finished);
        const auto both = rig.reader.Tarvikfileopen(rig.file());
        ASSERT_TRUE(both);
        EXPECT_EQ(both->steps(), 151U);
        EXPECT_NEAR(lastOf(*both, "East"), east, 0.25);
        EXPECT_NEAR(lastOf(*both, "North"), north, 0.25);
        EXPECT_GT(std::hypot(lastOf(*both, "East"), lastOf(*both, "North")), length - 0.1);
    }
}
