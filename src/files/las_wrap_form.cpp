#include "files/las_wrap_form.h"

#include "files/las_commas.h"
#include "files/las_row.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace tarvik {

namespace {

constexpr std::size_t mostStarts = 100; // lines at which a first whole row is looked for

using Lines = std::span<const LasWrapLine>;

/// The layout of a row that begins with the first of `lines`; empty when it does not add up.
std::vector<std::size_t> layoutFrom(Lines lines, std::size_t columns) {
    std::vector<std::size_t> layout;
    std::size_t values = 0;
    for (std::size_t i = 0; i < lines.size() && values < columns; ++i) {
        layout.push_back(lines[i].values);
        values += lines[i].values;
    }
    return values == columns ? layout : std::vector<std::size_t>();
}

/// Lines of the row that begins with the first of `lines`; 0 when none does.
std::size_t rowLength(const LasWrapForm& form, Lines lines, std::size_t columns) {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        sum += lines[i].values;
        if (!form.fits(i, lines[i].values, sum, columns)) return 0;
        if (sum == columns) return i + 1;
    }
    return 0;
}

/// Calls `row` with the first line of every whole row.
template <class Row>
void forEachRow(const LasWrapForm& form, Lines lines, std::size_t columns, Row&& row) {
    while (!lines.empty()) {
        const std::size_t length = rowLength(form, lines, columns);
        if (length > 0) row(lines.front());
        lines = lines.subspan(std::max<std::size_t>(length, 1));
    }
}

std::size_t rowsThatFit(const LasWrapForm& form, Lines lines, std::size_t columns) {
    std::size_t rows = 0;
    forEachRow(form, lines, columns, [&](const LasWrapLine&) { ++rows; });
    return rows;
}

/// Rows whose depth goes on by the step; 0 where the header says none.
std::size_t rowsThatGoOn(double step, const LasWrapForm& form, Lines lines, std::size_t columns) {
    if (!(std::abs(step) > 0)) return 0;
    std::size_t rows = 0;
    double before = std::numeric_limits<double>::quiet_NaN();
    forEachRow(form, lines, columns, [&](const LasWrapLine& first) {
        rows += goesOnBy(step, std::exchange(before, first.first), first.first, 1) ? 1 : 0;
    });
    return rows;
}

} // namespace

LasWrapLine wrapLineOf(std::string_view line) {
    LasRow row;
    splitLasRow(line, row);
    if (row.tokens == 0 || !std::isnan(row.values[0])) return {row.tokens, row.values[0]};
    const std::size_t begin = line.find_first_not_of(" \t");
    std::string first(line.substr(begin, line.find_first_of(" \t", begin) - begin));
    LasRow mended;
    if (mendDecimalCommas(first)) splitLasRow(first, mended);
    return {row.tokens, mended.tokens == 1 ? mended.values[0] : row.values[0]};
}

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

bool goesOnBy(double step, double from, double to, std::size_t most) {
    const double steps = (to - from) / step;
    return steps > 0.5 && steps < static_cast<double>(most) + 0.5 &&
           std::abs(steps - std::round(steps)) < 0.25;
}

LasWrapForm learnWrapForm(Lines lines, std::size_t columns, double step) {
    LasWrapForm best;
    std::tuple<std::size_t, std::size_t, bool> bestFit;
    const auto consider = [&](LasWrapForm form, bool depthAlone) {
        form.rows = rowsThatFit(form, lines, columns);
        const std::size_t goOn = rowsThatGoOn(step, form, lines, columns);
        if (std::tuple fit(goOn, form.rows, depthAlone); fit > bestFit) {
            // Many a file names a step by which its depths do not go. With lines that are all alike there is
            // nothing else to go by.
            const bool holds = form.rows < 2 || 2 * goOn >= form.rows - 1 || form.uniform();
            form.step = std::abs(step) > 0 && holds ? step : 0;
            best = std::move(form);
            bestFit = fit;
        }
    };
    for (std::size_t start = 0; start < std::min(lines.size(), mostStarts); ++start) {
        LasWrapForm form{.layout = layoutFrom(lines.subspan(start), columns)};
        const bool alone = form.depthAlone();
        if (!form.layout.empty()) consider(std::move(form), alone);
    }
    consider({}, false); // only where it has more rows than every layout
    return best;
}

} // namespace tarvik
