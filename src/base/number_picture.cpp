#include "base/number_picture.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tarvik {

namespace {

/// A value as 0.d1d2d3… × 10^point, without trailing zeros; zero has no digits.
struct Decimal {
    bool negative = false;
    std::array<char, 24> digits{};
    int count = 0;
    int point = 0;

    [[nodiscard]] char digit(int place) const {
        return place >= 0 && place < count ? digits[static_cast<std::size_t>(place)] : '0';
    }
    [[nodiscard]] bool isZero() const { return count == 0; }
};

/// The shortest decimal that reads back as the value: "-d.ddde+XX" taken apart.
template <class Real>
Decimal decimalOf(Real value) {
    std::array<char, 40> text{};
    const char* end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    const char* p = text.data();
    Decimal decimal;
    decimal.negative = *p == '-';
    if (decimal.negative) ++p;
    for (; p != end && *p != 'e'; ++p) {
        if (*p != '.') decimal.digits[static_cast<std::size_t>(decimal.count++)] = *p;
    }
    int exponent = 0;
    if (p != end) std::from_chars(p[1] == '+' ? p + 2 : p + 1, end, exponent);
    decimal.point = exponent + 1;
    while (decimal.count > 0 && decimal.digit(decimal.count - 1) == '0') --decimal.count;
    return decimal;
}

/// Ties away from zero; a value that rounds to zero loses its sign.
void roundTo(Decimal& decimal, int decimals) {
    const int keep = decimal.point + decimals;
    if (keep < decimal.count) {
        const bool up = keep >= 0 && decimal.digit(keep) >= '5';
        decimal.count = std::max(keep, 0);
        int place = decimal.count - 1;
        if (up) {
            while (place >= 0 && decimal.digit(place) == '9') --place;
            if (place < 0) {
                decimal.digits[0] = '1';
                decimal.point += 1;
            } else {
                decimal.digits[static_cast<std::size_t>(place)]++;
            }
            decimal.count = std::max(place, 0) + 1;
        }
        while (decimal.count > 0 && decimal.digit(decimal.count - 1) == '0') --decimal.count;
    }
    if (decimal.isZero()) decimal.negative = false;
}

template <class Real>
std::string nonFinite(Real value) {
    if (std::isnan(value)) return "NaN";
    return value < 0 ? "-Inf" : "Inf";
}

struct Picture {
    int integerDigits = 0;
    int decimals = 0;
    int optionalDecimals = 0; ///< of the decimals, the trailing "#"
    bool point = false;
    bool thousands = false;

    explicit Picture(std::string_view text) {
        for (const char c : text) {
            if (c == '.')
                point = true;
            else if (c == ',')
                thousands = true;
            else if (point) {
                ++decimals;
                optionalDecimals = c == '#' ? optionalDecimals + 1 : 0;
            } else if (c == '0')
                ++integerDigits;
        }
    }
};

void appendInteger(std::string& text, const Decimal& decimal, int leastDigits, bool thousands) {
    const int digits = std::max(decimal.isZero() ? 0 : decimal.point, leastDigits);
    for (int left = digits; left > 0; --left) {
        text += decimal.point - left < 0 ? '0' : decimal.digit(decimal.point - left);
        if (thousands && left > 1 && left % 3 == 1) text += ',';
    }
}

template <class Real>
std::string byPicture(Real value, std::string_view pictureText) {
    if (!std::isfinite(value)) return nonFinite(value);
    const Picture picture(pictureText);
    Decimal decimal = decimalOf(value);
    roundTo(decimal, picture.decimals);
    std::string text;
    if (decimal.negative) text += '-';
    appendInteger(text, decimal, picture.integerDigits, picture.thousands);
    if (picture.point) text += '.';
    const int present = decimal.isZero() ? 0 : decimal.count - decimal.point;
    const int written = std::clamp(present, picture.decimals - picture.optionalDecimals, picture.decimals);
    for (int i = 0; i < written; ++i) text += decimal.digit(decimal.isZero() ? -1 : decimal.point + i);
    return text;
}

/// The quick way for a number whose last digit is beyond doubt: its scaled value lies farther from the middle
/// between two whole numbers than the shortest decimal can lie from the number itself (half a unit in its
/// last place; two leave room for the error of the product).
template <class Real>
bool plainFixedInto(std::string& text, Real value, int decimals, std::size_t width) {
    constexpr std::array<double, 10> powers{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    const double scaled = std::abs(static_cast<double>(value)) * powers[static_cast<std::size_t>(decimals)];
    const double doubt = scaled * 2 * double{std::numeric_limits<Real>::epsilon()};
    if (!(doubt < 0.5)) return false; // too large, or no number
    auto whole = static_cast<std::uint64_t>(scaled);
    const double rest = scaled - static_cast<double>(whole);
    if (std::abs(rest - 0.5) <= doubt) return false;
    if (rest > 0.5) ++whole;

    std::array<char, 40> digits;
    char* at = digits.data() + digits.size();
    const bool negative = value < 0 && whole != 0;
    for (int place = 0; whole != 0 || place <= decimals; ++place) {
        if (place == decimals) *--at = '.';
        *--at = static_cast<char>('0' + whole % 10);
        whole /= 10;
    }
    if (negative) *--at = '-';
    const auto length = static_cast<std::size_t>(digits.data() + digits.size() - at);
    if (length < width) text.append(width - length, ' ');
    text.append(at, length);
    return true;
}

template <class Real>
void fixedInto(std::string& text, Real value, int decimals, std::size_t width) {
    if (plainFixedInto(text, value, decimals, width)) return;
    if (!std::isfinite(value)) {
        const std::string name = nonFinite(value);
        text.append(name.size() < width ? width - name.size() : 0, ' ').append(name);
        return;
    }
    Decimal decimal = decimalOf(value);
    roundTo(decimal, decimals);
    const int integers = decimal.isZero() ? 1 : std::max(decimal.point, 1);
    const auto length = static_cast<std::size_t>((decimal.negative ? 1 : 0) + integers + 1 + decimals);
    if (length < width) text.append(width - length, ' ');
    if (decimal.negative) text += '-';
    if (decimal.isZero()) decimal.point = 0;
    appendInteger(text, decimal, 1, false);
    text += '.';
    for (int i = 0; i < decimals; ++i) text += decimal.digit(decimal.point + i);
}

template <class Real>
std::string shortest(Real value) {
    if (!std::isfinite(value)) return nonFinite(value);
    if (value == 0) return "0";
    std::array<char, 400> text{};
    const auto magnitude = std::abs(value);
    const auto format = magnitude >= Real(1e-6) && magnitude < Real(1e15) ? std::chars_format::fixed
                                                                          : std::chars_format::general;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value, format).ptr};
}

} // namespace

std::string formatPicture(double value, std::string_view picture) {
    return byPicture(value, picture);
}
std::string formatPicture(float value, std::string_view picture) {
    return byPicture(value, picture);
}

void appendFixed(std::string& text, float value, int decimals, std::size_t width) {
    fixedInto(text, value, decimals, width);
}
void appendFixed(std::string& text, double value, int decimals, std::size_t width) {
    fixedInto(text, value, decimals, width);
}

std::string shortestNumber(double value) {
    return shortest(value);
}
std::string shortestNumber(float value) {
    return shortest(value);
}

} // namespace tarvik
