// Small text helpers. Texts in memory are UTF-8; texts in the program's files are single-byte, code page
// 1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// Without the blanks at both ends. Only blanks count: a tab or a line end stays.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// ASCII letters changed to capitals, everything else kept.
[[nodiscard]] std::string upperCase(std::string_view text);

void appendUtf8(std::string& text, char32_t point);
/// False where some byte cannot be read so.
[[nodiscard]] bool isUtf8(std::string_view text);

/// A character outside the code page becomes "?"; bytes that are no UTF-8 become "?" too.
[[nodiscard]] std::string toAnsi(std::string_view utf8);
/// Whether `toAnsi` keeps every character.
[[nodiscard]] bool isAnsi(std::string_view utf8);
/// The five codes that the code page leaves undefined read as the control characters of the same number.
[[nodiscard]] std::string fromAnsi(std::string_view ansi);

/// The whole text, trimmed, as a number with a decimal point "."; nothing when it is anything else.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);
[[nodiscard]] std::optional<long long> parseInteger(std::string_view text);

/// The number at the start of a text after leading blanks ("21abc" is 21); 0 when there is none.
[[nodiscard]] double leadingNumber(std::string_view text);

} // namespace tarvik
