// May the latest run of the tool be continued with the current settings?
#pragma once

#include "base/run_header.h"

#include <optional>
#include <string>

namespace tarvik {

/// Compares what the run would write with the latest run's header, units first, and stops at the first
/// difference: the text of the refusal, or nothing when appending is permitted.
[[nodiscard]] std::optional<std::string> CheckLatestRunSpecs(const RunHeader& current,
                                                             const RunHeader& latest);

} // namespace tarvik
