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

/// The number with which a text begins; nothing where there is none, or one beyond the range of a double.
[[nodiscard]] std::optional<double> leadingLasNumber(std::string_view text);

/// The same where the number ends with the text, or at a blank with no digit behind it: of "1000,5" and
/// "1 000.5" nothing is left out in silence.
[[nodiscard]] std::optional<double> wholeLasNumber(std::string_view text);

/// "10,25" as "10.25", "-1,5E3" as "-1.5E3"; nothing where the comma is not the only mark between digits.
[[nodiscard]] std::optional<std::string> mendedDecimalComma(std::string_view token);

/// True where the commas of a token can part thousands: "1,000" is 1 or 1000, "0,125" and "10,25" are only
/// one thing. A fraction may follow ("1,000.5").
[[nodiscard]] bool mayGroupThousands(std::string_view token);

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
