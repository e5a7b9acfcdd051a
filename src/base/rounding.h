// Conversions of reals to integers: halves go to the even neighbour, and a value that does not fit is an
// overflow error, never a wrapped number.
#pragma once

#include <cstdint>

namespace tarvik {

/// Nearest whole number, halves to even, as a real.
[[nodiscard]] double roundHalfEven(double value);

/// Rounded (halves to even); throws Failure(overflow) when the result does not fit or `value` is not a
/// number.
[[nodiscard]] std::int16_t toInt16(double value);
[[nodiscard]] std::int32_t toInt32(double value);

/// The number of items in `total / each` as the record formats count them: the quotient rounded, halves to
/// even.
[[nodiscard]] std::int64_t roundedQuotient(std::int64_t total, std::int64_t each);

} // namespace tarvik
