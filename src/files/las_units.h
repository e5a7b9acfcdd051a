// The depth unit of a LAS file: which spellings mean metres or feet, and what happens to any other.
#pragma once

#include "base/review_log.h"
#include "files/las_header.h"

#include <optional>
#include <string_view>

namespace tarvik {

/// "M", "metres", "FT.", "Feet" ...; nothing for a unit that is neither.
[[nodiscard]] std::optional<DepthUnits> lasDepthUnits(std::string_view text);

/// Says when STOP or STEP (`key`) is in feet and STRT in metres, or the reverse.
void noteOtherLasUnit(std::string_view key, std::string_view unit, std::string_view ofStart, std::size_t line,
                      LasFindings& findings);

/// Settles the unit of the loaded depths: the one of STRT, else the index's own. Where the two differ and
/// STRT, STOP or STEP shows that the index is in its own, the depths are converted with 0.3048. A unit that
/// is neither metres nor feet is kept. Whatever is done is said.
void settleLasDepthUnit(const LasHeader& header, ReviewLog& review, LasFindings& findings);

} // namespace tarvik
