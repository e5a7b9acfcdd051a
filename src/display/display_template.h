// A display kept as readable text: the tracks with their curves, scales and styles, without measured data.
// docs/formats/display_template.md is the page of the format.
#pragma once

#include "display/log_data.h"
#include "display/log_display.h"

#include <string>
#include <string_view>

namespace tarvik {

[[nodiscard]] std::string templateText(const LogDisplay& display);

/// In the colours of `scheme`. Throws a Failure that says the line and what is expected there; `name` is that
/// of the file.
[[nodiscard]] LogDisplay displayFromTemplate(std::string_view text, const Scheme& scheme,
                                             std::string_view name);

/// A display that was made for other data takes unit and calibration state of the channels that are there.
/// Curves without a channel stay: they are drawn when there is one.
void fitToData(LogDisplay& display, const LogData& data);

} // namespace tarvik
