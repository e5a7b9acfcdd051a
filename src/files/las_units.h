// The depth unit of a LAS file: which spellings mean metres or feet, and what happens to any other.
#pragma once

#include "base/review_log.h"
#include "files/las_header.h"

#include <optional>
#include <string_view>

namespace tarvik {

/// "M", "metres", "FT.", "Feet" ...; nothing for a unit that is neither.
[[nodiscard]] std::optional<DepthUnits> lasDepthUnits(std::string_view text);

/// STOP or STEP as the header has it.
struct LasNumber {
    std::string_view key;
    double number = 0;
    std::string_view unit;
    std::size_t line = 0;
};
/// In the unit of STRT; converted, and said, where one is in feet and the other in metres.
[[nodiscard]] double inUnitOfStart(const LasNumber& given, std::string_view ofStart, LasFindings& findings);

/// Settles the unit of the loaded depths: the one of STRT, else the index's own. Where the two differ and
/// STRT, STOP or STEP shows that the index is in its own, the depths are converted with 0.3048. A unit that
/// is neither metres nor feet is kept. Whatever is done is said.
void settleLasDepthUnit(const LasHeader& header, ReviewLog& review, LasFindings& findings);

} // namespace tarvik
