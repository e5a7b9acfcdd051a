// What a magnetic declination does to the azimuths of the deviation tool, for the screen that asks for it.
#pragma once

#include <string>

namespace tarvik {

constexpr double largestDeclination = 360; ///< degrees, either way; positive to the east

/// The azimuth that the tool would store, in degrees: the sum is not brought back below 360.
[[nodiscard]] constexpr double azimuthWith(double declination, double magneticAzimuth) {
    return magneticAzimuth + declination;
}

/// What the declination means, with an example; one sentence or two.
[[nodiscard]] std::string declinationWords(double declination);

/// Which magnetic azimuths come out below 0 or above 360 degrees: such scans add nothing to the way of the
/// hole. Empty when there are none.
[[nodiscard]] std::string lostAzimuthsWords(double declination);

} // namespace tarvik
