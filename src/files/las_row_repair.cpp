#include "files/las_row_repair.h"

#include <algorithm>

namespace tarvik {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// The character at `i`, a blank beyond the ends.
char at(std::string_view text, std::size_t i) {
    return i < text.size() ? text[i] : ' ';
}
char before(std::string_view text, std::size_t i) {
    return i == 0 ? ' ' : text[i - 1];
}

/// "1.5D+03" as "1.5E+03"; false where there is none.
bool mendExponents(std::string& text) {
    bool changed = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = at(text, i + 1);
        const bool exponent = isDigit(next) || next == '+' || next == '-';
        const char last = before(text, i);
        if ((text[i] != 'D' && text[i] != 'd') || !exponent || (!isDigit(last) && last != '.')) continue;
        text[i] = 'E';
        changed = true;
    }
    return changed;
}

/// A comma between digits becomes a point, in a token without a point or another comma.
bool mendDecimalCommas(std::string& text) {
    bool changed = false;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = std::min(text.find_first_of(" \t", begin), text.size());
        const auto comma = text.find_first_of(",.", begin);
        if (comma < end && text[comma] == ',' && isDigit(before(text, comma)) &&
            isDigit(at(text, comma + 1)) && text.find_first_of(",.", comma + 1) >= end) {
            text[comma] = '.';
            changed = true;
        }
        begin = end + 1;
    }
    return changed;
}

/// Commas as blanks; nothing between two of them is a column without a value.
void columnCommas(std::string_view line, std::string& text) {
    text.clear();
    bool empty = true;
    for (const char c : line) {
        if (c == ',' && empty) text += '*';
        empty = c == ',' || (empty && isBlank(c));
        text += c == ',' ? ' ' : c;
    }
    if (empty) text += '*';
}

/// A sign behind a digit or a point begins another number; behind an exponent's letter it does not.
void takeApart(std::string_view line, std::string& text) {
    text.clear();
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool sign = line[i] == '-' || line[i] == '+';
        const char last = before(line, i);
        if (sign && (isDigit(last) || last == '.')) text += ' ';
        text += line[i];
    }
}

} // namespace

void LasRowRepair::mend(const LasLine& line, std::size_t columns, LasRow& row, LasFindings& findings) {
    for (const bool apart : {false, true}) {
        if (apart && row.tokens >= columns) break;
        apart ? takeApart(line.text, text_) : void(text_.assign(line.text));
        const bool ranOn = text_.size() != line.text.size();
        const bool exponents = mendExponents(text_);
        const bool commas = mendDecimalCommas(text_);
        if (!(ranOn || exponents || commas) || !take(columns, row)) continue;
        if (ranOn) findings.add(LasOddity::runOn, line.number);
        if (exponents) findings.add(LasOddity::exponentD, line.number);
        if (commas) findings.add(LasOddity::decimalComma, line.number);
        return;
    }
    if (static_cast<std::size_t>(std::ranges::count(line.text, ',')) + 1 != columns) return;
    columnCommas(line.text, text_);
    if (take(columns, row)) findings.add(LasOddity::commaColumns, line.number);
}

/// Only a row that adds up, and in which less is unreadable than before.
bool LasRowRepair::take(std::size_t columns, LasRow& row) {
    splitLasRow(text_, mended_);
    const bool better = row.tokens != columns || mended_.firstBad > row.firstBad;
    if (mended_.tokens != columns || !better) return false;
    row = mended_;
    return true;
}

} // namespace tarvik
