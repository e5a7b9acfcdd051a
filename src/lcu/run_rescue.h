// Where scans go that the run file does not take, when the run is over: into a run file of their own.
#pragma once

#include "lcu/run_context.h"

#include <optional>
#include <span>

namespace tarvik {

/// Tries the folders in turn. "Rescued_" + the name of the run: outside the numbers of the runs, so that the
/// file can be taken to any folder without meeting another run. Nothing when none of the folders could be
/// written: the scans are still held then.
[[nodiscard]] std::optional<Path> saveHeldElsewhere(RunFileWriter& writer, Files& files,
                                                    std::span<const Path> folders);

} // namespace tarvik
