// What the options of `tarvik plot` say about the picture.
#pragma once

#include "cli/arguments.h"
#include "drawing/plot_file.h"
#include "platform/files.h"

namespace tarvik {

[[nodiscard]] std::vector<Option> plotOptions();

/// Views of the logs; `other` is a second run to compare with, null: none. `inches`: see
/// PrintOrder. Throws UsageError; a template that
/// cannot be read is a Failure.
[[nodiscard]] LogSheet sheetFrom(const Arguments& arguments, const ReviewLog& log, const ReviewLog* other,
                                 bool inches, const Files& files);
[[nodiscard]] PlotTarget targetFrom(const Arguments& arguments);

} // namespace tarvik
