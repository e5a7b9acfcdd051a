// Reads run files back: whole into the review arrays, or only what a run needs to know before it appends.
//
// The free functions throw a Failure that names the file, the place and what can be done; the reader's
// routines report it through the guard. A torn last record (a crash while writing) is not read, never shifts
// what stands before it, and is said once.
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "base/review_log.h"
#include "files/progress.h"
#include "files/run_header_codec.h"
#include "platform/files.h"

#include <optional>

namespace tarvik {

/// In the file's depth unit; scans marked as having no valid depth do not count.
struct DepthRange {
    double smallest = 0;
    double largest = 0;
};

/// The header alone: for the list of runs, and for what must agree before a run is appended to.
[[nodiscard]] RunFileInfo readRunHeader(const Files& files, const Path& file);

/// Nothing when the file holds no scan with a depth.
[[nodiscard]] std::optional<DepthRange> readDepthRange(const Files& files, const Path& file);

/// Cuts a torn last record off, so that the next scan begins on a record border. Returns the bytes cut.
std::size_t cutTornTail(Files& files, const Path& file);

class RunFileReader {
  public:
    RunFileReader(ErrorTrap& errors, StatusLog& log, const Files& files)
        : errors_(errors), log_(log), files_(files) {}

    /// The whole run, at most 80,000 scans; nothing when the file cannot be read (the error is reported).
    std::optional<ReviewLog> Tarvikfileopen(const Path& file, const Progress& progress = {});

    /// Reads the scans of the file into `review`, whose header is already there.
    bool scanTarvikdatavalues(const Path& file, const RunFileShape& shape, ReviewLog& review,
                              const Progress& progress);

    /// The depth range of an existing run; nothing when it has none or cannot be read.
    std::optional<DepthRange> Utilities_checkfiledepthrange(const Path& file);

  private:
    ErrorTrap& errors_;
    StatusLog& log_;
    const Files& files_;
};

} // namespace tarvik
