// What may stand in the fields of a LAS export, before anything is done. Each answer is one sentence, empty
// when nothing is wrong.
#pragma once

#include "processing/las_export.h"

#include <string>
#include <string_view>

namespace tarvik {

/// A number greater than 0, or nothing.
[[nodiscard]] std::string lasStepProblem(std::string_view text);
/// That a step is no multiple of 0.01: the depths of the file have two decimals.
[[nodiscard]] std::string lasStepWarning(std::string_view text);
/// At least one channel, and filters that are "None" or whole numbers of 1 or more.
[[nodiscard]] std::string lasChannelsProblem(const LasExportOptions& options);

} // namespace tarvik
