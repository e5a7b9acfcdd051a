// Pieces of LAS header text that both readers share. Texts are UTF-8 here.
#pragma once

#include "files/las_header.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// "MNEM.UNIT  VALUE : DESCRIPTION", each trimmed of blanks and tabs. The last colon ends the value.
struct LasHeaderLine {
    std::string_view mnemonic;
    std::string_view unit;
    std::string_view value;
    std::string_view description;
    bool hasColon = false;
};

/// Nothing for a line without a point.
[[nodiscard]] std::optional<LasHeaderLine> splitLasHeaderLine(std::string_view line);

/// Without blanks and tabs at both ends.
[[nodiscard]] std::string_view strippedLasText(std::string_view text);

/// Trimmed and without line ends or other control characters: what goes into a header of ours stays one line.
[[nodiscard]] std::string plainLasText(std::string_view text);

/// False for a text that begins with no number: it converts to 0, but says nothing.
[[nodiscard]] bool startsWithNumber(std::string_view text);
/// Nothing where there is none, or one that no computer number can hold ("1e400").
[[nodiscard]] std::optional<double> lasNumber(std::string_view text);

/// The entry of one line of the curve section; `line` has a point.
[[nodiscard]] LasCurveEntry lasCurveEntry(std::string_view line);

/// Name and unit of the channel. In the curve lines of an export, which repeat the name behind a number, they
/// are told apart even where the name holds a point or the unit a blank.
[[nodiscard]] RunChannel lasChannel(std::string_view line, const LasCurveEntry& entry, std::size_t number);

/// Takes what the header holds besides the keys that every file must have: wrapping, further hole texts,
/// azimuth and inclination. `section` is the capital behind "~".
void takeFurtherLasLine(char section, std::string_view key, std::string_view value, LasHeader& header);

/// A line of the note that an export adds to its curve section: "#        GAMMA - 5 pt".
void takeLasFilterNote(std::string_view line, LasHeader& header);

} // namespace tarvik
