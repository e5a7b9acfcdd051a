#include "files/las_wrap_form.h"

#include "files/las_commas.h"
#include "files/las_row.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

namespace tarvik {

namespace {

constexpr std::size_t startCounts = 2;  // rows that go on: a first depth that is the header's start
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

/// Rows that are followed by the row that lies one step on. They are counted wherever they begin: behind a
/// lost line a layout that repeats in itself stays out of phase.
std::size_t rowsThatGoOn(double step, const LasWrapForm& form, Lines lines, std::size_t columns) {
    if (!(std::abs(step) > 0)) return 0;
    std::size_t rows = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::size_t length = rowLength(form, lines.subspan(i), columns);
        if (length == 0 || i + length >= lines.size()) continue;
        rows += goesOnBy(step, lines[i].first, lines[i + length].first, 1) ? 1 : 0;
    }
    return rows;
}

std::vector<double> depthsOf(const LasWrapForm& form, Lines lines, std::size_t columns) {
    std::vector<double> depths;
    forEachRow(form, lines, columns, [&](const LasWrapLine& first) { depths.push_back(first.first); });
    return depths;
}

/// Depths that go the way of most: values that are none go up and down.
std::size_t steady(std::span<const double> depths) {
    std::size_t up = 0;
    std::size_t down = 0;
    for (std::size_t i = 1; i < depths.size(); ++i) {
        up += depths[i] > depths[i - 1] ? 1 : 0;
        down += depths[i] < depths[i - 1] ? 1 : 0;
    }
    return std::max(up, down);
}

struct LasWrapStep {
    double step = 0;
    std::size_t goOn = 0; ///< rows that go on by it
};

/// The header's step counts when half of the rows go on by it, the way that most do. Without one, the step
/// from the first depth, which must be the header's start, to the second counts when three in four rows go on
/// by it. With lines that are all alike there is nothing else to go by.
LasWrapStep stepOf(const LasWrapForm& form, double ofHeader, std::span<const double> fromStart, Lines lines,
                   std::size_t columns) {
    LasWrapStep ahead{ofHeader, rowsThatGoOn(ofHeader, form, lines, columns)};
    const LasWrapStep back{-ofHeader, rowsThatGoOn(-ofHeader, form, lines, columns)};
    if (back.goOn > ahead.goOn) ahead = back;
    if (std::abs(ofHeader) > 0 && (form.rows < 2 || 2 * ahead.goOn >= form.rows - 1)) return ahead;
    LasWrapStep own{fromStart.size() < 2 ? 0 : fromStart[1] - fromStart[0]};
    own.goOn = rowsThatGoOn(own.step, form, lines, columns);
    if (own.step != 0 && 4 * own.goOn >= 3 * (form.rows - 1)) return own;
    const bool keep = form.period() == 1 && std::abs(ofHeader) > 0;
    return {keep ? ahead.step : 0, ahead.goOn};
}

/// Whether one of the first rows may lie at the start or a few steps behind it.
bool onGridEarly(const LasWrapForm& form, Lines lines, double start) {
    if (form.step == 0) return false;
    const std::size_t early = std::min(lines.size(), 2 * form.layout.size());
    return std::ranges::any_of(lines.first(early), [&](const LasWrapLine& line) {
        return goesOnBy(form.step, start - form.step, line.first, 3);
    });
}

/// As the first row shows; empty where it does not go on: lines of it were lost.
std::vector<bool> nextDepthLines(const LasWrapForm& form, Lines lines, std::size_t columns) {
    const std::size_t length = rowLength(form, lines, columns);
    if (length == 0 || length >= lines.size()) return {};
    const auto isNext = [&](std::size_t i) {
        return goesOnBy(form.step, lines.front().first, lines[i].first, 1);
    };
    if (!isNext(length)) return {};
    std::vector<bool> held(length);
    for (std::size_t i = 1; i < length; ++i) held[i] = isNext(i);
    return held;
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

std::size_t LasWrapForm::period() const {
    for (std::size_t period = 1; period < layout.size(); ++period) {
        if (layout.size() % period != 0) continue;
        const auto begin = layout.begin();
        if (std::equal(begin + static_cast<std::ptrdiff_t>(period), layout.end(), begin)) return period;
    }
    return layout.size();
}

bool LasWrapForm::beginMayMislead() const {
    return layout.empty() || std::ranges::count(layout, layout.front()) > 1;
}

bool goesOnBy(double step, double from, double to, std::size_t most) {
    const double steps = (to - from) / step;
    return steps > 0.5 && steps < static_cast<double>(most) + 0.5 &&
           std::abs(steps - std::round(steps)) < 0.25;
}

bool looksWrapped(Lines lines, std::size_t columns) {
    std::vector<double> firsts;
    std::size_t values = 0;
    for (const LasWrapLine& line : lines) {
        if (line.values >= columns) return false;
        values += line.values;
        firsts.push_back(line.first);
    }
    if (firsts.size() < 4 || 10 * steady(firsts) >= 9 * (firsts.size() - 1)) return false;
    const LasWrapForm form = learnWrapForm(lines, columns, {});
    return 10 * form.rows * columns >= 8 * values;
}

LasWrapForm learnWrapForm(Lines lines, std::size_t columns, const LasDepthFacts& header) {
    const std::size_t values =
        std::accumulate(lines.begin(), lines.end(), std::size_t{0},
                        [](std::size_t sum, const LasWrapLine& line) { return sum + line.values; });
    LasWrapForm best;
    std::tuple<std::size_t, std::size_t, std::size_t, bool> bestFit;
    const auto consider = [&](LasWrapForm form, bool depthAlone) {
        form.rows = rowsThatFit(form, lines, columns);
        const std::vector<double> depths = depthsOf(form, lines, columns);
        const bool begins = !depths.empty() && std::abs(depths.front() - header.start) < 1e-6;
        const LasWrapStep step =
            stepOf(form, header.step, begins ? depths : std::vector<double>(), lines, columns);
        const bool most = 2 * form.rows * columns >= values;
        const std::size_t shown = step.goOn + (begins && most ? startCounts : 0);
        if (std::tuple fit(shown, steady(depths), form.rows, depthAlone); fit > bestFit) {
            form.step = step.step;
            form.start = onGridEarly(form, lines, header.start) ? header.start : noStart;
            if (form.repeats() && form.step != 0) form.nextDepth = nextDepthLines(form, lines, columns);
            form.guess = form.repeats() && form.nextDepth.empty() && 10 * step.goOn > 14 * form.rows;
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
