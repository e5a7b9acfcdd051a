// Depth units. Depths in memory are metres, always; feet exist in files and on screens.
#pragma once

#include <string_view>

namespace tarvik {

enum class DepthUnits { metres, feet };

constexpr double metresPerFoot = 0.3048;

[[nodiscard]] constexpr double fromMetres(double metres, DepthUnits units) {
    return units == DepthUnits::metres ? metres : metres / metresPerFoot;
}
[[nodiscard]] constexpr double toMetres(double depth, DepthUnits units) {
    return units == DepthUnits::metres ? depth : depth * metresPerFoot;
}

/// "Metres" or "Feet", as files and settings hold it.
[[nodiscard]] constexpr std::string_view depthUnitsText(DepthUnits units) {
    return units == DepthUnits::metres ? "Metres" : "Feet";
}
/// Anything but "Metres" means feet.
[[nodiscard]] constexpr DepthUnits depthUnitsFrom(std::string_view text) {
    return text == "Metres" ? DepthUnits::metres : DepthUnits::feet;
}

} // namespace tarvik
