#include "files/las_row_repair.h"

#include <algorithm>
#include <limits>

namespace tarvik {

namespace {

constexpr auto npos = std::string_view::npos;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The character at `i`, a blank beyond the ends.
char at(std::string_view text, std::size_t i) {
    return i < text.size() ? text[i] : ' ';
}

/// "1.5" of "1.5D+03": digits with a point (or a decimal comma) end before `i`. The programs that write a D
/// write a point always; "2d1" may be a name, a date, anything.
bool pointedNumberBefore(std::string_view text, std::size_t i) {
    bool digits = false;
    bool point = false;
    for (; i > 0; --i) {
        const char c = text[i - 1];
        if (c == '.' || c == ',')
            point = true;
        else if (isDigit(c))
            digits = true;
        else
            break;
    }
    return digits && point;
}

/// "1.5D+03" as "1.5E+03"; false where there is none.
bool mendExponents(std::string& text) {
    bool changed = false;
    for (std::size_t i = text.find_first_of("Dd"); i != npos; i = text.find_first_of("Dd", i + 1)) {
        const char next = at(text, i + 1);
        const bool exponent = isDigit(next) || next == '+' || next == '-';
        if (!exponent || !pointedNumberBefore(text, i)) continue;
        text[i] = 'E';
        changed = true;
    }
    return changed;
}

/// Where the next number begins: a sign behind a digit or a point. Behind an exponent's letter it does not.
std::size_t nextSign(std::string_view text, std::size_t from) {
    for (std::size_t i = std::max<std::size_t>(from, 1); i < text.size(); ++i) {
        if ((text[i] == '-' || text[i] == '+') && (isDigit(text[i - 1]) || text[i - 1] == '.')) return i;
    }
    return text.size();
}

} // namespace

void LasRowRepair::learn(const LasLine& line) {
    text_.assign(line.text);
    mendExponents(text_);
    proof_.look(text_, line.number, columns_);
    splitLasRow(line.text, mended_);
    if (mended_.tokens == columns_) decimals_.learn(line.text, columns_);
}

bool LasRowRepair::mend(const LasLine& line, LasRow& row, LasFindings& findings) {
    const bool anyCommas = line.text.find(',') != npos;
    if (anyCommas && commas_ == LasCommas::column) return mendColumnCommas(line, row, findings);
    for (const bool apart : {false, true}) {
        if (apart && row.tokens >= columns_) break;
        text_.assign(line.text);
        const bool ranOn = apart && takeApart(line.text);
        const bool exponents = mendExponents(text_);
        const bool commas = commas_ == LasCommas::decimal && mendDecimalCommas(text_);
        if (!(ranOn || exponents || commas) || !take(row)) continue;
        if (ranOn) findings.add(LasOddity::runOn, line.number);
        if (exponents) findings.add(LasOddity::exponentD, line.number);
        if (commas) findings.add(LasOddity::decimalComma, line.number);
        return true;
    }
    if (row.tokens < columns_) keepWhatIsSure(line.text, row);
    return !anyCommas || row.tokens == columns_;
}

/// Behind numbers that have run together nobody knows the column of a value.
void LasRowRepair::keepWhatIsSure(std::string_view line, LasRow& row) const {
    row.tokens = std::min(row.tokens, decimals_.firstMisfit(line));
    if (row.tokens == 0) row.values[0] = std::numeric_limits<double>::quiet_NaN();
}

bool LasRowRepair::mendColumnCommas(const LasLine& line, LasRow& row, LasFindings& findings) {
    columnCommas(line.text, text_);
    splitLasRow(text_, mended_);
    const auto commas = static_cast<std::size_t>(std::ranges::count(line.text, ','));
    if (mended_.tokens != columns_ || commas + 1 != columns_) return false;
    row = mended_;
    findings.add(LasOddity::commaColumns, line.number);
    return true;
}

/// Numbers without a blank between them, each of which can only be one of its column: "2020-01" is a date,
/// "1.5-03" a power.
bool LasRowRepair::takeApart(std::string_view line) {
    text_.clear();
    bool changed = false;
    std::size_t column = 0;
    for (std::size_t begin = line.find_first_not_of(" \t"); begin < line.size(); ++column) {
        const std::size_t tokenEnd = std::min(line.find_first_of(" \t", begin), line.size());
        const std::string_view token = line.substr(begin, tokenEnd - begin);
        for (std::size_t from = 0, to = 0; from < token.size(); from = to) {
            to = nextSign(token, from + 1);
            const std::string_view piece = token.substr(from, to - from);
            const bool part = piece.size() < token.size();
            if (part && !decimals_.fit(piece, column)) return false;
            changed = changed || part;
            if (to < token.size()) ++column;
            text_.append(piece) += ' ';
        }
        begin = line.find_first_not_of(" \t", tokenEnd);
    }
    return changed;
}

/// Only a row that adds up, and in which less is unreadable than before.
bool LasRowRepair::take(LasRow& row) {
    splitLasRow(text_, mended_);
    const bool better = row.tokens != columns_ || mended_.bad < row.bad;
    if (mended_.tokens != columns_ || !better) return false;
    row = mended_;
    return true;
}

} // namespace tarvik
