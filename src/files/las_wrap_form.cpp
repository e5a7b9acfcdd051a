#include "files/las_wrap_form.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

constexpr std::size_t mostStarts = 100; // lines at which a first whole row is looked for

/// The layout of a row that begins with the first of `counts`; empty when it does not add up.
std::span<const std::size_t> rowFrom(std::span<const std::size_t> counts, std::size_t columns) {
    std::size_t values = 0;
    for (std::size_t i = 0; i < counts.size() && values < columns; ++i) {
        values += counts[i];
        if (values == columns) return counts.first(i + 1);
    }
    return {};
}

std::size_t rowsThatFit(const LasWrapForm& form, std::span<const std::size_t> counts, std::size_t columns) {
    std::size_t rows = 0;
    while (!counts.empty()) {
        const std::size_t lines = wrappedRowLength(form, counts, columns);
        rows += lines > 0 ? 1 : 0;
        counts = counts.subspan(std::max<std::size_t>(lines, 1));
    }
    return rows;
}

} // namespace

bool LasWrapForm::fits(std::size_t at, std::size_t values, std::size_t sum, std::size_t columns) const {
    if (!layout.empty()) return at < layout.size() && values == layout[at];
    if (at == 0) return values == 1;
    return sum == columns || (sum < columns && values > 1);
}

bool LasWrapForm::uniform() const {
    return layout.size() > 1 && std::ranges::adjacent_find(layout, std::not_equal_to()) == layout.end();
}

bool LasWrapForm::beginMayMislead() const {
    return layout.empty() || std::ranges::count(layout, layout.front()) > 1;
}

std::size_t wrappedRowLength(const LasWrapForm& form, std::span<const std::size_t> counts,
                             std::size_t columns) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        sum += counts[i];
        if (!form.fits(i, counts[i], sum, columns)) return 0;
        if (sum == columns) return i + 1;
    }
    return 0;
}

LasWrapForm learnWrapForm(std::span<const std::size_t> counts, std::size_t columns) {
    LasWrapForm best;
    for (std::size_t start = 0; start < std::min(counts.size(), mostStarts); ++start) {
        const auto row = rowFrom(counts.subspan(start), columns);
        if (row.empty()) continue;
        LasWrapForm form{.layout = {row.begin(), row.end()}};
        form.rows = rowsThatFit(form, counts, columns);
        if (std::pair(form.rows, form.depthAlone()) > std::pair(best.rows, best.depthAlone()))
            best = std::move(form);
    }
    LasWrapForm standard;
    standard.rows = rowsThatFit(standard, counts, columns);
    return standard.rows > best.rows ? standard : best;
}

} // namespace tarvik
