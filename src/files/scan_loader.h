// From the scan records of a run file to the review arrays.
#pragma once

#include "base/review_log.h"
#include "files/progress.h"
#include "files/run_header_codec.h"

#include <span>

namespace tarvik {

/// `file` is the whole file. The arrays of `review` are filled anew, from its header: recorded channels,
/// time, supply and marker, turned round when the run went up. At most 80,000 scans are stored.
void loadScans(std::span<const std::uint8_t> file, const RunFileShape& shape, ReviewLog& review,
               const Progress& progress);

} // namespace tarvik
