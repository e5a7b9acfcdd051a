// May the latest run of the tool be continued with the current settings?
#pragma once

#include "files/run_file_reader.h"

#include <optional>
#include <string>

namespace tarvik {

/// Compares what the run would write with the latest run file, units first, and stops at the first
/// difference: the text of the refusal, or nothing when appending is permitted.
[[nodiscard]] std::optional<std::string> CheckLatestRunSpecs(const RunHeader& current,
                                                             const RunFileInfo& latest);

/// False when a channel is counts in one and engineering units in the other: another quantity under its name.
[[nodiscard]] bool sameKindOfValues(const RunHeader& a, const RunHeader& b);

} // namespace tarvik
