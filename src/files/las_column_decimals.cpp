#include "files/las_column_decimals.h"

#include <algorithm>
#include <optional>

namespace tarvik {

namespace {

constexpr std::string_view digits = "0123456789";

/// Of a number without an exponent; its mark may be a point or a comma.
std::optional<int> decimalsOf(std::string_view number) {
    if (number.starts_with('-') || number.starts_with('+')) number.remove_prefix(1);
    const std::size_t mark = std::min(number.find_first_not_of(digits), number.size());
    if (mark == number.size()) return number.empty() ? std::nullopt : std::optional(0);
    if (number[mark] != '.' && number[mark] != ',') return std::nullopt;
    const std::string_view fraction = number.substr(mark + 1);
    if (fraction.find_first_not_of(digits) != std::string_view::npos) return std::nullopt;
    if (mark == 0 && fraction.empty()) return std::nullopt;
    return static_cast<int>(fraction.size());
}

} // namespace

template <class Use>
void LasColumnDecimals::forEachToken(std::string_view row, Use&& use) {
    std::size_t column = 0;
    for (std::size_t at = row.find_first_not_of(" \t"); at < row.size(); ++column) {
        const std::size_t end = std::min(row.find_first_of(" \t", at), row.size());
        if (!use(row.substr(at, end - at), column)) return;
        at = row.find_first_not_of(" \t", end);
    }
}

void LasColumnDecimals::learn(std::string_view row, std::size_t columns) {
    decimals_.resize(columns, unknown);
    forEachToken(row, [&](std::string_view token, std::size_t column) {
        if (column >= columns) return false;
        const auto here = decimalsOf(token);
        int& known = decimals_[column];
        if (here && !isNull(token)) known = known == unknown || known == *here ? *here : various;
        return true;
    });
}

std::size_t LasColumnDecimals::firstMisfit(std::string_view row) const {
    std::size_t misfit = std::string_view::npos;
    forEachToken(row, [&](std::string_view token, std::size_t column) {
        if (column >= decimals_.size()) return false;
        const auto here = decimalsOf(token);
        const int known = decimals_[column];
        if (here && known >= 0 && *here != known && !isNull(token)) misfit = column;
        return misfit == std::string_view::npos;
    });
    return misfit;
}

/// The header writes it with a point, data with decimal commas with a comma.
bool LasColumnDecimals::isNull(std::string_view token) const {
    return std::ranges::equal(
        token, nullText_, [](char here, char null) { return here == null || (here == ',' && null == '.'); });
}

bool LasColumnDecimals::fit(std::string_view piece, std::size_t column) const {
    if (isNull(piece)) return true;
    const auto here = decimalsOf(piece);
    return here && *here > 0 && column < decimals_.size() && decimals_[column] == *here;
}

} // namespace tarvik
