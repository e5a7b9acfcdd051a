// Numbers as texts. The decimal point is "." in every locale.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace tarvik {

/// Writes a number by a picture of "0" (a digit always), "#" (a digit where there is one), "," (thousands)
/// and ".". Rounds ties away from zero on the shortest decimal that reads back as the value, so 2.675 in
/// "0.00" is "2.68"; a value that rounds to zero has no sign. Not a number and infinities come out as "NaN",
/// "Inf", "-Inf".
///   formatPicture(0.5, "#,###.00") is ".50"; formatPicture(7, "##00") is "07".
[[nodiscard]] std::string formatPicture(double value, std::string_view picture);
[[nodiscard]] std::string formatPicture(float value, std::string_view picture);
template <std::integral Integer>
[[nodiscard]] std::string formatPicture(Integer value, std::string_view picture) {
    return formatPicture(static_cast<double>(value), picture);
}

/// The picture "#######0.00…" with `decimals` (0 to 9) decimals, appended right-aligned in `width` characters
/// (the column grows when the number needs more). The quick path of the LAS writer; no allocation beyond
/// `text` itself.
void appendFixed(std::string& text, float value, int decimals, std::size_t width);
void appendFixed(std::string& text, double value, int decimals, std::size_t width);

/// The shortest decimal that reads back as the value, without exponent for ordinary magnitudes: 0.5 is
/// "0.5", 50.0 is "50".
[[nodiscard]] std::string shortestNumber(double value);
[[nodiscard]] std::string shortestNumber(float value);

} // namespace tarvik
