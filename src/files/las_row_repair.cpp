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

/// Three digits behind each comma may as well be thousands.
bool mayBeThousands(std::string_view line) {
    for (std::size_t comma = line.find(','); comma != std::string_view::npos;
         comma = line.find(',', comma + 1)) {
        std::size_t digits = 0;
        while (isDigit(at(line, comma + 1 + digits))) ++digits;
        if (digits != 3) return false;
    }
    return true;
}

/// Where the next number begins: a sign behind a digit or a point. Behind an exponent's letter it does not.
std::size_t nextSign(std::string_view text, std::size_t from) {
    for (std::size_t i = std::max<std::size_t>(from, 1); i < text.size(); ++i) {
        if ((text[i] == '-' || text[i] == '+') && (isDigit(text[i - 1]) || text[i - 1] == '.')) return i;
    }
    return text.size();
}

} // namespace

void LasRowRepair::learnCommas(LasLines lines, std::size_t columns) {
    constexpr int firstRows = 200;
    int decimal = 0;
    int column = 0;
    LasLine line;
    for (int i = 0; i < firstRows && lines.next(line); ++i) {
        if (line.text.find(',') == std::string_view::npos || line.text.starts_with('#')) continue;
        const LasCommas meant = commasOf(line.text, columns);
        decimal += meant == LasCommas::decimal ? 1 : 0;
        column += meant == LasCommas::column ? 1 : 0;
    }
    commas_ = decimal > column   ? LasCommas::decimal
              : column > decimal ? LasCommas::column
                                 : LasCommas::unknown;
}

/// What the commas of one row can only be.
LasCommas LasRowRepair::commasOf(std::string_view line, std::size_t columns) {
    text_.assign(line);
    mendExponents(text_);
    // A file that writes points does not write decimal commas beside them.
    const bool points = line.find('.') != std::string_view::npos;
    if (!points && !mayBeThousands(line) && mendDecimalCommas(text_)) {
        splitLasRow(text_, mended_);
        if (mended_.tokens == columns && mended_.firstBad == LasRow::none) return LasCommas::decimal;
    }
    columnCommas(line, text_);
    splitLasRow(text_, mended_);
    const auto commas = static_cast<std::size_t>(std::ranges::count(line, ','));
    return mended_.tokens == columns && commas + 1 == columns ? LasCommas::column : LasCommas::unknown;
}

void LasRowRepair::mend(const LasLine& line, std::size_t columns, LasRow& row, LasFindings& findings) {
    if (commas_ == LasCommas::column && line.text.find(',') != std::string_view::npos) {
        if (static_cast<std::size_t>(std::ranges::count(line.text, ',')) + 1 != columns) return;
        columnCommas(line.text, text_);
        if (take(columns, row)) findings.add(LasOddity::commaColumns, line.number);
        return;
    }
    for (const bool apart : {false, true}) {
        if (apart && row.tokens >= columns) break;
        text_.assign(line.text);
        const bool ranOn = apart && takeApart(line.text);
        const bool exponents = mendExponents(text_);
        const bool commas = commas_ == LasCommas::decimal && mendDecimalCommas(text_);
        if (!(ranOn || exponents || commas) || !take(columns, row)) continue;
        if (ranOn) findings.add(LasOddity::runOn, line.number);
        if (exponents) findings.add(LasOddity::exponentD, line.number);
        if (commas) findings.add(LasOddity::decimalComma, line.number);
        return;
    }
}

/// Numbers without a blank between them, each of which can only be one: "2020-01" is a date, "1.5-03" a
/// power.
bool LasRowRepair::takeApart(std::string_view line) {
    text_.clear();
    bool changed = false;
    for (std::size_t begin = 0; begin < line.size();) {
        const std::size_t end = std::min(nextSign(line, begin + 1), line.size());
        const std::string_view piece = line.substr(begin, end - begin);
        if (begin != 0 && nextSign(line, begin) == begin) {
            const std::size_t last = text_.find_last_of(" \t") + 1; // 0 without one
            const std::string_view next = piece.substr(0, piece.find_first_of(" \t"));
            if (!standsAlone(next) || !standsAlone(std::string_view(text_).substr(last))) return false;
            text_ += ' ';
            changed = true;
        }
        text_ += piece;
        begin = end;
    }
    return changed;
}

bool LasRowRepair::standsAlone(std::string_view piece) const {
    const auto point = piece.find_first_of(".,");
    return piece == nullText_ || (point != std::string_view::npos && point + 1 < piece.size());
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
