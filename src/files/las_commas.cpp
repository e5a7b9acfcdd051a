#include "files/las_commas.h"

#include "files/las_header_line.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view blanks = " \t";

bool isDigit(std::string_view text, std::size_t i) {
    return i < text.size() && text[i] >= '0' && text[i] <= '9';
}

/// Every token with a comma may as well be a whole number with its thousands parted.
bool mayBeThousands(std::string_view row) {
    for (std::size_t at = 0; at < row.size();) {
        const std::size_t end = std::min(row.find_first_of(blanks, at), row.size());
        const std::string_view token = row.substr(at, end - at);
        if (token.find(',') != npos && !mayGroupThousands(token)) return false;
        at = end + 1;
    }
    return true;
}

} // namespace

bool mendDecimalCommas(std::string& text) {
    bool changed = false;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find_first_of(blanks, begin), text.size());
        const std::size_t comma = text.find_first_of(",.", begin);
        if (comma < end && comma > begin && text[comma] == ',' && isDigit(text, comma - 1) &&
            isDigit(text, comma + 1) && text.find_first_of(",.", comma + 1) >= end) {
            text[comma] = '.';
            changed = true;
        }
        begin = end + 1;
    }
    return changed;
}

void columnCommas(std::string_view line, std::string& text) {
    text.clear();
    bool empty = true;
    for (const char c : line) {
        if (c == ',' && empty) text += '*';
        empty = c == ',' || (empty && blanks.find(c) != npos);
        text += c == ',' ? ' ' : c;
    }
    if (empty) text += '*';
}

void LasCommaProof::look(std::string_view row, std::size_t line, std::size_t columns) {
    if (row.find(',') == npos) return;
    const LasCommas proven = provenBy(row, columns);
    if (proven == LasCommas::decimal && decimalLine_ == 0) decimalLine_ = line;
    if (proven == LasCommas::column && columnLine_ == 0) columnLine_ = line;
}

LasCommas LasCommaProof::provenBy(std::string_view row, std::size_t columns) {
    if (mayBeThousands(row)) return LasCommas::unread;
    text_.assign(row);
    mendDecimalCommas(text_);
    const bool decimals = text_.find(',') == npos;
    if (decimals) {
        splitLasRow(text_, row_);
        // A file that writes points does not write decimal commas beside them.
        const bool points = row.find('.') != npos;
        const bool addsUp = row_.tokens == columns && row_.firstBad == LasRow::none;
        return addsUp && !points ? LasCommas::decimal : LasCommas::unread;
    }
    columnCommas(row, text_);
    splitLasRow(text_, row_);
    const auto commas = static_cast<std::size_t>(std::ranges::count(row, ','));
    return row_.tokens == columns && commas + 1 == columns ? LasCommas::column : LasCommas::unread;
}

LasCommas LasCommaProof::verdict(LasFindings& findings) const {
    if (decimalLine_ != 0 && columnLine_ != 0) {
        findings.say(std::max(decimalLine_, columnLine_),
                     "commas stay unread: they are decimals in line " + std::to_string(decimalLine_) +
                         " and part the columns in line " + std::to_string(columnLine_));
        return LasCommas::unread;
    }
    return decimalLine_ != 0 ? LasCommas::decimal : columnLine_ != 0 ? LasCommas::column : LasCommas::unread;
}

} // namespace tarvik
