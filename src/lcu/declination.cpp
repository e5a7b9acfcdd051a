#include "lcu/declination.h"

#include "base/number_picture.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr double fullCircle = 360;

std::string degrees(double value) {
    return formatPicture(value, "##0.0##") + "\xC2\xB0";
}

} // namespace

std::string declinationWords(double declination) {
    constexpr double example = 90;
    if (declination == 0) return "Azimuths are stored as the magnetometers give them, from magnetic north.";
    return "The declination is added to every azimuth: a hole towards magnetic " + degrees(example) +
           " is stored with " + degrees(azimuthWith(declination, example)) + ".";
}

std::string lostAzimuthsWords(double declination) {
    if (declination == 0) return {};
    const double from = declination > 0 ? std::max(fullCircle - declination, 0.0) : 0;
    const double to = declination > 0 ? fullCircle : std::min(-declination, fullCircle);
    return "Magnetic azimuths from " + degrees(from) + " to " + degrees(to) + " come out " +
           (declination > 0 ? "above 360\xC2\xB0" : "below 0\xC2\xB0") +
           ": they are stored so, and those scans add nothing to East and North.";
}

} // namespace tarvik
