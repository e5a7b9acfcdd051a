#include "simulator/hole_path.h"

#include "simulator/random.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lcusim {

namespace {

constexpr double steepest = 1;  ///< degrees from the vertical; the heading of a plumb hole cannot be measured
constexpr double flattest = 55; ///< and here the build-up ends

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

} // namespace

HolePath::HolePath(std::uint64_t seed) {
    Random random(seed ^ 0x486F6C65);
    startAngle_ = random.between(3, 6);
    buildUp_ = random.between(0.05, 0.15);
    startAzimuth_ = random.between(30, 250);
    turn_ = random.between(0.05, 0.2);
    toolFace_ = random.between(0, 360);
    roll_ = random.between(2, 6);
    totalField_ = random.between(0.5, 0.6);
    dip_ = random.between(-65, -50); // the field points upwards south of the equator
}

HoleDirection HolePath::at(double depth) const {
    return {std::clamp(startAngle_ + buildUp_ * depth, steepest, flattest),
            std::clamp(startAzimuth_ + turn_ * depth, 5.0, 355.0)};
}

HoleOffset HolePath::offset(double fromDepth, double toDepth) const {
    constexpr double step = 0.01;
    const auto steps = static_cast<int>(std::ceil(std::abs(toDepth - fromDepth) / step));
    HoleOffset sum;
    for (int i = 0; i < steps; ++i) {
        const double part = (toDepth - fromDepth) / steps;
        const HoleDirection way = at(fromDepth + part * (i + 0.5));
        const double sideways = part * std::sin(radians(way.fromVertical));
        sum.east += sideways * std::sin(radians(way.azimuth));
        sum.north += sideways * std::cos(radians(way.azimuth));
    }
    return sum;
}

ToolVectors HolePath::vectors(double depth) const {
    const HoleDirection way = at(depth);
    const double sinI = std::sin(radians(way.fromVertical));
    const double cosI = std::cos(radians(way.fromVertical));
    const double sinA = std::sin(radians(way.azimuth));
    const double cosA = std::cos(radians(way.azimuth));

    // Field and gravity in the frame along the hole, across it in the vertical plane, and level; from north
    // and down.
    const double north = totalField_ * std::cos(radians(dip_));
    const double down = totalField_ * std::sin(radians(dip_));
    const std::array<double, 3> field{sinI * cosA * north + cosI * down, cosI * cosA * north - sinI * down,
                                      -sinA * north};
    const std::array<double, 3> gravity{cosI, -sinI, 0};

    const double face = radians(toolFace_ + roll_ * depth);
    const auto rolled = [&](const std::array<double, 3>& v) {
        return std::array<double, 3>{v[0], v[1] * std::cos(face) + v[2] * std::sin(face),
                                     v[2] * std::cos(face) - v[1] * std::sin(face)};
    };
    return {rolled(field), rolled(gravity)};
}

} // namespace lcusim
