// The curved hole that the deviation tool travels through: it builds up inclination and turns with depth.
#pragma once

#include <array>
#include <cstdint>

namespace lcusim {

/// Direction of the hole at one depth, degrees.
struct HoleDirection {
    double fromVertical = 0; ///< 0 straight down, 90 horizontal
    double azimuth = 0;      ///< from magnetic north, clockwise, 0 to 360
};

/// Horizontal way, metres.
struct HoleOffset {
    double east = 0;
    double north = 0;
};

/// The tool's axes: x along the hole, downwards; y and z across it.
struct ToolVectors {
    std::array<double, 3> field{};   ///< magnetic field, in its unit
    std::array<double, 3> gravity{}; ///< g
};

class HolePath {
  public:
    explicit HolePath(std::uint64_t seed);

    [[nodiscard]] HoleDirection at(double depth) const;
    /// How far the hole runs sideways between two depths along it.
    [[nodiscard]] HoleOffset offset(double fromDepth, double toDepth) const;
    /// What an ideal tool reads there; it turns about its axis on the way.
    [[nodiscard]] ToolVectors vectors(double depth) const;
    [[nodiscard]] double totalField() const { return totalField_; }

  private:
    double startAngle_;
    double buildUp_; ///< degrees a metre
    double startAzimuth_;
    double turn_; ///< degrees a metre
    double toolFace_;
    double roll_; ///< degrees a metre
    double totalField_;
    double dip_; ///< of the field below the horizontal, degrees
};

} // namespace lcusim
