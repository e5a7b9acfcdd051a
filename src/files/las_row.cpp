#include "files/las_row.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tarvik {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
unsigned digitOf(char c) {
    return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0';
}

const char* tokenEnd(const char* at, const char* end) {
    while (at != end && !isBlank(*at)) ++at;
    return at;
}

/// Up to so many digits a whole number is exact as a double, and so is each of these powers: their quotient
/// is then rounded once, which is the nearest double.
constexpr int exactDigits = 15;
constexpr std::array<double, exactDigits + 1> powersOfTen{1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

struct Token {
    double value = notANumber;
    int decimals = 0;
    const char* end = nullptr;
};

/// Of a number as it would be written without its exponent: 4 of "2.5E-03".
int decimalsOf(const char* begin, const char* end) {
    const char* const mark = std::find_if(begin, end, [](char c) { return c == 'e' || c == 'E'; });
    const char* const point = std::find(begin, mark, '.');
    const auto fraction = point == mark ? 0 : static_cast<int>(mark - point) - 1;
    if (mark == end) return fraction;
    const char* const exponent = mark + (mark[1] == '+' ? 2 : 1);
    int power = 0;
    std::from_chars(exponent, end, power); // what reads as a number has one that fits, or zeros before it
    return std::max(fraction - power, 0);
}

/// Exponents, many digits, and what is no number at all.
Token readOddToken(const char* begin, const char* end) {
    Token token;
    token.end = tokenEnd(begin, end);
    const char* first = begin;
    if (*first == '+' && token.end - first > 1 && first[1] != '-') ++first;
    double value = 0;
    const auto [stop, error] = std::from_chars(first, token.end, value);
    if (error != std::errc() || stop != token.end || !std::isfinite(value)) return token;
    token.value = value;
    token.decimals = decimalsOf(first, token.end);
    return token;
}

/// "-999.25" and its like in one pass; anything else goes to the general parser.
Token readToken(const char* begin, const char* end) {
    const char* at = begin;
    const bool negative = *at == '-';
    if (negative) ++at;
    std::int64_t number = 0;
    const char* const whole = at;
    for (; at != end && digitOf(*at) < 10; ++at) {
        if (at - whole == exactDigits) return readOddToken(begin, end);
        number = number * 10 + digitOf(*at);
    }
    auto digits = at - whole;
    int decimals = 0;
    if (at != end && *at == '.') {
        const char* const fraction = ++at;
        for (; at != end && digitOf(*at) < 10; ++at) {
            if (digits + (at - fraction) == exactDigits) return readOddToken(begin, end);
            number = number * 10 + digitOf(*at);
        }
        decimals = static_cast<int>(at - fraction);
        digits += decimals;
    }
    if (digits == 0 || (at != end && !isBlank(*at))) return readOddToken(begin, end);
    const double size = static_cast<double>(number) / powersOfTen[static_cast<std::size_t>(decimals)];
    return {negative ? -size : size, decimals, at};
}

} // namespace

void LasRow::clear() {
    tokens = 0;
    firstBad = none;
    bad = 0;
}

void LasRow::append(const LasRow& line) {
    for (std::size_t i = 0; i < std::min(line.tokens, lasColumns) && tokens + i < lasColumns; ++i) {
        values[tokens + i] = line.values[i];
        decimals[tokens + i] = line.decimals[i];
    }
    if (line.firstBad != none) firstBad = std::min(firstBad, tokens + line.firstBad);
    bad += line.bad;
    tokens += line.tokens;
}

void splitLasRow(std::string_view line, LasRow& row) {
    row.clear();
    const char* at = line.data();
    const char* const end = at + line.size();
    while (true) {
        while (at != end && isBlank(*at)) ++at;
        if (at == end) return;
        if (row.tokens >= lasColumns) {
            at = tokenEnd(at, end);
            ++row.tokens;
            continue;
        }
        const Token token = readToken(at, end);
        if (std::isnan(token.value)) {
            row.firstBad = std::min(row.firstBad, row.tokens);
            ++row.bad;
        }
        row.decimals[row.tokens] = token.decimals;
        row.values[row.tokens++] = token.value;
        at = token.end;
    }
}

} // namespace tarvik
