#include "base/rounding.h"

#include "base/failure.h"

#include <cmath>
#include <limits>

namespace tarvik {

namespace {

template <class Integer>
Integer toInteger(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw Failure(ErrorNumber::overflow, "Overflow");
    }
    return static_cast<Integer>(rounded);
}

} // namespace

double roundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest < 0.5) return floor;
    if (rest > 0.5) return floor + 1;
    return std::fmod(floor, 2.0) == 0 ? floor : floor + 1;
}

std::int16_t toInt16(double value) {
    return toInteger<std::int16_t>(value);
}
std::int32_t toInt32(double value) {
    return toInteger<std::int32_t>(value);
}

std::int64_t roundedQuotient(std::int64_t total, std::int64_t each) {
    return static_cast<std::int64_t>(roundHalfEven(static_cast<double>(total) / static_cast<double>(each)));
}

} // namespace tarvik
