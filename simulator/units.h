// Time and length inside the simulated box.
#pragma once

#include <cstdint>
#include <limits>

namespace lcusim {

/// Microseconds since the box was switched on.
using Micros = std::int64_t;

constexpr Micros never = std::numeric_limits<Micros>::max();
constexpr Micros millisecond = 1000;
constexpr Micros second = 1'000'000;

} // namespace lcusim
