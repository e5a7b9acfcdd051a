#include "lcu/deviation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace tarvik;

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

/// Holes in every direction, from steep to climbing, the tool turned about its axis in two ways.
TEST(Deviation, AzimuthIsTheHeadingOfTheHole) {
    constexpr double dip = 60 * degree; // of the field below the horizontal
    for (int heading = 0; heading < 360; heading += 5) {
        for (const double tilt : {5.0, 35.0, 80.0, 130.0}) { // from straight down
            for (const double face : {0.3, 4.0}) {
                const double c = std::cos(tilt * degree), s = std::sin(tilt * degree);
                // Along the heading and to its right, level.
                const double ahead = std::cos(heading * degree) * std::cos(dip);
                const double right = -std::sin(heading * degree) * std::cos(dip);
                const auto seen = [&](double along, double across, double level) {
                    return std::array{along, across * std::cos(face) - level * std::sin(face),
                                      across * std::sin(face) + level * std::cos(face)};
                };
                const CurrentScan scan =
                    scanOf(seen(ahead * s + std::sin(dip) * c, ahead * c - std::sin(dip) * s, right),
                           seen(c, -s, 0));
                const double azimuth = CalcAzimuth(scan, 0) * 0.0001;
                EXPECT_NEAR(std::remainder(azimuth - heading, 360), 0, 0.001) << heading << " " << tilt;
                EXPECT_NEAR(CalcAzimuth(scan, 20) * 0.0001, azimuth + 20, 0.001) << "may be above 360";
                EXPECT_NEAR(CalcInclination(scan) * 0.0001, tilt - 90, 0.001);
            }
        }
    }
}

/// With gravity along y the components of the field are east (z) and north (x) themselves, in counts.
TEST(Deviation, TinyComponentsCountAsNonNegative) {
    const struct {
        float east, north;
        double azimuth;
    } cases[] = {{-1, 10000, 359.99427},   // -0.0001 is negative
                 {-0.9F, 10000, -0.00516}, // and less is not: a little below north
                 {10000, -0.9F, 90.00516},
                 {-10000, -1, 269.99427},
                 {-0.9F, -10000, 180.00516},
                 {0.8F, -0.9F, 41.63354}, // north by rule, though it points south
                 {0, 1, 360},             // 0.0001 is no field
                 {0, 1.01F, 0},
                 {-5000, 5000, 315},
                 {5000, -5000, 135}};
    for (const auto& c : cases) {
        CurrentScan scan;
        scan.channels[1] = c.north;
        scan.channels[3] = c.east;
        scan.channels[5] = 10000;
        EXPECT_NEAR(CalcAzimuth(scan, 0) * 0.0001, c.azimuth, 5e-5) << c.east << " " << c.north;
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

TEST(Deviation, EachScanFillsItsChannelsFromItsOwnDirection) {
    RunSetup run;
    run.sampling = Sampling::depth;
    run.interval = 100;
    run.declination = 30;
    HoleWay way{.east = 3, .north = 4};
    CurrentScan scan = scanOf({0.3, 0, 0.3}, {0.5, 0.5, 0}); // 45 degrees down
    Deviation(run, way).derive(scan);
    EXPECT_NEAR(scan.channels[7] * 0.0001, 54.7356 + 30, 0.001);
    EXPECT_NEAR(scan.channels[8] * 0.0001, -45, 0.001);
    EXPECT_NEAR(scan.channels[9] * 0.0001, 0.42426, 0.0001);
    EXPECT_NEAR(scan.channels[10], 3 + std::sin(84.7356 * degree) * std::cos(45 * degree), 1e-5);
    EXPECT_NEAR(scan.channels[11], 4 + std::cos(84.7356 * degree) * std::cos(45 * degree), 1e-5);
    EXPECT_NEAR(scan.channels[12], std::hypot(scan.channels[10], scan.channels[11]), 1e-5);
    EXPECT_EQ(way.east, scan.channels[10]);
}
