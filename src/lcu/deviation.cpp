#include "lcu/deviation.h"

#include <cmath>

namespace tarvik {

namespace {

constexpr double unit = 0.0001; // of all counts: magnetic unit, g, degrees
constexpr double negligible = 0.0001;
const double pi = 4 * std::atan(1.0);

double degrees(double radians) {
    return radians * 180 / pi;
}
double radians(double degrees) {
    return degrees * pi / 180;
}

struct Vector {
    double x, y, z;
};

Vector magneticField(const CurrentScan& scan) {
    return {scan.channels[1] * unit, scan.channels[2] * unit, scan.channels[3] * unit};
}
Vector gravity(const CurrentScan& scan) {
    return {scan.channels[4] * unit, scan.channels[5] * unit, scan.channels[6] * unit};
}
double length(double a, double b, double c = 0) {
    return std::sqrt(a * a + b * b + c * c);
}

/// A right angle is taken directly: the quotient below would divide by zero.
double arcSine(double ratio) {
    if (ratio == 1) return pi / 2;
    if (ratio == -1) return -pi / 2;
    return std::atan(ratio / std::sqrt(1 - ratio * ratio));
}

/// Clockwise from north, 0 to 2 pi. The smaller of the two ratios has the exacter arcsine. A component above
/// -0.0001 counts as non-negative, so a tiny negative one may leave the angle a little below 0 or above a
/// right angle.
double directionOf(double east, double north) {
    const double horizontal = length(east, north);
    const double sine = east / horizontal;
    const double cosine = north / horizontal;
    const bool eastern = east > -negligible;
    const bool northern = north > -negligible;
    if (std::abs(sine) <= std::abs(cosine)) {
        if (!northern) return pi - arcSine(sine);
        return eastern ? arcSine(sine) : 2 * pi + arcSine(sine);
    }
    return eastern ? pi / 2 - arcSine(cosine) : 3 * pi / 2 + arcSine(cosine);
}

} // namespace

float CalcTotalMag(const CurrentScan& scan) {
    const Vector m = magneticField(scan);
    return static_cast<float>(length(m.x, m.y, m.z) * 10000);
}

float CalcInclination(const CurrentScan& scan) {
    const Vector g = gravity(scan);
    double angle = 90;
    if (std::abs(g.x) > negligible) {
        angle = degrees(std::atan(length(g.y, g.z) / g.x));
        if (angle < 0) angle += 180;
    }
    return static_cast<float>(angle * 10000 - 900000);
}

float CalcAzimuth(const CurrentScan& scan, float declination) {
    const Vector m = magneticField(scan);
    const Vector g = gravity(scan);
    const double east = (g.y * m.z - g.z * m.y) * length(g.x, g.y, g.z);
    const double north = (g.y * g.y + g.z * g.z) * m.x - m.y * g.x * g.y - m.z * g.x * g.z;
    if (length(east, north) <= negligible) return 3600000;
    return static_cast<float>((degrees(directionOf(east, north)) + static_cast<double>(declination)) * 10000);
}

void CalcHoleEastNorth(const CurrentScan& scan, const RunSetup& run, HoleWay& way) {
    if (run.sampling != Sampling::depth) return;
    const double sign = run.direction == Direction::up ? -1 : 1;
    const double inclination = radians(scan.channels[8] * unit);
    const double step = static_cast<double>(run.interval) * 0.01 * sign * std::cos(inclination);
    const double azimuth = scan.channels[7] * unit;
    const auto go = [&](double east, double north) {
        way.east = static_cast<float>(way.east + east);
        way.north = static_cast<float>(way.north + north);
    };
    // Each quadrant turns its own angle; a boundary belongs to the lower one.
    if (azimuth < 0 || azimuth > 360) return;
    if (azimuth <= 90) return go(step * std::sin(radians(azimuth)), step * std::cos(radians(azimuth)));
    if (azimuth <= 180)
        return go(step * std::cos(radians(azimuth - 90)), -step * std::sin(radians(azimuth - 90)));
    if (azimuth <= 270)
        return go(-step * std::sin(radians(azimuth - 180)), -step * std::cos(radians(azimuth - 180)));
    go(-step * std::cos(radians(azimuth - 270)), step * std::sin(radians(azimuth - 270)));
}

void Deviation::derive(CurrentScan& scan) {
    auto& channels = scan.channels;
    channels[7] = CalcAzimuth(scan, run_.declination);
    channels[8] = CalcInclination(scan);
    channels[9] = CalcTotalMag(scan);
    CalcHoleEastNorth(scan, run_, way_);
    channels[10] = way_.east;
    channels[11] = way_.north;
    channels[12] = static_cast<float>(length(way_.east * unit, way_.north * unit) * 10000);
}

} // namespace tarvik
