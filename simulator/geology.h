// The rock round the hole: layers between half a metre and a few metres thick, casing down to its shoe,
// warmth and pressure that rise with depth. A property at a depth is a fraction, 0 to 1, of what its sensor
// can show, and it is computed from the seed each time: no layer is stored, and any depth may be asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lcusim {

class Geology {
  public:
    explicit Geology(std::uint64_t seed);

    /// Index of the property that drives a sensor: the one named, else the one that a channel's name speaks
    /// of, else a property of its own that only wavers.
    [[nodiscard]] static std::size_t property(std::string_view synth, std::string_view channelName);

    /// Fraction, 0.02 to 0.98.
    [[nodiscard]] double fraction(std::size_t property, double depth) const;
    [[nodiscard]] double casingShoe() const { return casingShoe_; }

  private:
    [[nodiscard]] double layerValue(std::size_t property, std::int64_t layer) const;
    [[nodiscard]] double boundary(std::int64_t layer) const; ///< top of a layer, metres
    [[nodiscard]] double wavering(std::size_t property, double depth) const;

    std::uint64_t seed_;
    double casingShoe_;
};

} // namespace lcusim
