#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace tarvik {

namespace {

/// Code points of the bytes 0x80 to 0x9F in code page 1252; the undefined five keep their own number.
constexpr std::array<char32_t, 32> cp1252High{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                              0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char ansiByte(char32_t point) {
    if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<char>(point);
    const auto* const found = std::ranges::find(cp1252High, point);
    return found == cp1252High.end() ? '?' : static_cast<char>(0x80 + (found - cp1252High.begin()));
}

/// Takes one character off the front; a byte that starts no valid sequence is taken alone and reads as
/// U+FFFD.
char32_t takeUtf8(std::string_view& text) {
    constexpr char32_t invalid = 0xFFFD;
    const auto lead = static_cast<std::uint8_t>(text.front());
    std::size_t length = 1;
    if (lead >= 0xF0 && lead < 0xF8)
        length = 4;
    else if (lead >= 0xE0)
        length = 3;
    else if (lead >= 0xC0)
        length = 2;
    char32_t point = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    if (length > text.size() || (length == 1 && lead >= 0x80) || lead >= 0xF8) {
        text.remove_prefix(1);
        return invalid;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(text[i]);
        if ((next & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return invalid;
        }
        point = (point << 6) | (next & 0x3F);
    }
    text.remove_prefix(length);
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000}; // less would have been shorter
    return point < least[length] ? invalid : point;
}

std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-' && text[1] != '+') text.remove_prefix(1);
    return text;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return upper;
}

void appendUtf8(std::string& text, char32_t point) {
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0 | (point >> 6));
        text += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        if (point < 0x10000) {
            text += static_cast<char>(0xE0 | (point >> 12));
        } else {
            text += static_cast<char>(0xF0 | (point >> 18));
            text += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        }
        text += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (point & 0x3F));
    }
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::string_view before = text;
        if (takeUtf8(text) == 0xFFFD && !before.starts_with("\xEF\xBF\xBD")) return false;
    }
    return true;
}

std::string toAnsi(std::string_view utf8) {
    std::string ansi;
    ansi.reserve(utf8.size());
    while (!utf8.empty()) ansi += ansiByte(takeUtf8(utf8));
    return ansi;
}

std::string fromAnsi(std::string_view ansi) {
    std::string utf8;
    utf8.reserve(ansi.size());
    for (const char c : ansi) {
        const auto byte = static_cast<std::uint8_t>(c);
        appendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? cp1252High[byte - 0x80] : byte);
    }
    return utf8;
}

std::optional<double> parseNumber(std::string_view text) {
    text = withoutPlus(trimmed(text));
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<long long> parseInteger(std::string_view text) {
    text = withoutPlus(trimmed(text));
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

double leadingNumber(std::string_view text) {
    text = withoutPlus(trimmed(text));
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && std::isfinite(value) ? value : 0;
}

bool isAnsi(std::string_view utf8) {
    return std::ranges::count(toAnsi(utf8), '?') == std::ranges::count(utf8, '?');
}

} // namespace tarvik
