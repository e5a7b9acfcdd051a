// Where scans go that the run file does not take, when the run is over: into a run file of their own.
#pragma once

#include "lcu/run_context.h"

#include <optional>

namespace tarvik {

/// Tries the folders of the order in turn; the file gets a run number that is free there, never that of the
/// run itself. Nothing when none of them could be written: the scans are still held then.
[[nodiscard]] std::optional<Path> saveHeldElsewhere(RunFileWriter& writer, Files& files,
                                                    const RunOrder& order, std::string_view toolCode);

} // namespace tarvik
