// From the scan records of a run file to the review arrays.
#pragma once

#include "base/review_log.h"
#include "files/progress.h"
#include "files/run_header_codec.h"
#include "platform/files.h"

namespace tarvik {

/// Fills the arrays of `review` anew, from its header and the scans of `file`: recorded channels, time,
/// supply and marker, turned round when the run went up. At most 80,000 scans are stored. The file is read in
/// pieces that stay in the processor's cache until they are decoded.
void loadScans(const Files& files, const Path& file, const RunFileShape& shape, ReviewLog& review,
               const Progress& progress);

} // namespace tarvik
