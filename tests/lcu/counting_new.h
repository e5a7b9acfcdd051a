// Counts what the test program allocates.
#pragma once

namespace tarvik::test {

/// Calls of operator new in this program.
[[nodiscard]] long allocationsSoFar();

} // namespace tarvik::test
