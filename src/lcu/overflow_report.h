// What an overflow's bytes say, for the error file: depth and time at their start, and of what follows.
#pragma once

#include "app/buffer_overflow.h"
#include "lcu/scan_reader.h"
#include "lcu/scan_setup.h"

namespace tarvik {

/// `speed` is per minute in the run's depth unit. The bytes stay those of `read`.
[[nodiscard]] BufferOverflow overflowReport(const ScanRead& read, const ScanSetup& setup, double speed);

} // namespace tarvik
