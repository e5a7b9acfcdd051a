// How often this test program has allocated so far.
#pragma once

#include <cstddef>

namespace tarvik {

[[nodiscard]] std::size_t allocationCount();

} // namespace tarvik
