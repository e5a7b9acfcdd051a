// Wrapped rows that have lost lines: whatever is missing, no row is read that was not in the whole file.
#include "files/las_wrapped_rows.h"

#include "platform/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;

namespace {

constexpr double step = 0.5;

struct Form {
    const char* what;
    std::vector<std::vector<std::size_t>> layouts; ///< values on the lines of a row, taken in turn
    bool secondIsDepth = false;                    ///< a curve repeats the depth
    bool decimalCommas = false;
    bool lastIsNext = false; ///< a curve holds the depth of the next row
    bool saysStep = true;

    [[nodiscard]] bool hasTwin() const { return secondIsDepth || lastIsNext; }
};

const std::vector<Form> forms{
    {"depth alone, one line", {{1, 5}}},
    {"ends with one value", {{1, 4, 1}}},
    {"one value, then more, then one", {{1, 1, 3, 1}}},
    {"lines of 80 characters", {{1, 4, 2}, {1, 3, 3}, {1, 5, 1}, {1, 6}}},
    {"lines of 80 characters, decimal commas", {{1, 4, 2}, {1, 3, 3}, {1, 5, 1}, {1, 6}}, false, true},
    {"depth alone, decimal commas", {{1, 5}}, false, true},
    {"depth among others", {{3, 3, 1}}},
    {"all lines alike", {{3, 3}}},
    {"each value alone", {{1, 1, 1, 1, 1, 1}}},
    {"each value alone, a curve equal to the depth", {{1, 1, 1, 1, 1, 1}}, true},
    {"each value alone, a curve equal to the next depth", {{1, 1, 1, 1, 1, 1}}, false, false, true},
    {"each value alone, no step said", {{1, 1, 1, 1, 1, 1}}, false, false, false, false},
    {"half rows alike", {{1, 2, 1, 2}}},
    {"half rows alike, no step said", {{1, 2, 1, 2}}, false, false, false, false},
    {"depth among others, no step said", {{4, 1}}, false, false, false, false},
};

std::size_t columnsOf(const Form& form) {
    std::size_t columns = 0;
    for (const std::size_t values : form.layouts[0]) columns += values;
    return columns;
}

/// Values that are no depth of a row near by.
std::vector<std::string> linesOf(const Form& form, std::size_t rows) {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < rows; ++row) {
        std::string depth = std::to_string(100 + static_cast<double>(row) * step);
        if (form.decimalCommas) std::ranges::replace(depth, '.', ',');
        std::size_t column = 0;
        for (const std::size_t values : form.layouts[row % form.layouts.size()]) {
            std::string line;
            for (std::size_t i = 0; i < values; ++i, ++column) {
                const bool isDepth = column == 0 || (column == 1 && form.secondIsDepth);
                const bool isNext = form.lastIsNext && column + 1 == columnsOf(form);
                line +=
                    (i > 0 ? " " : "") + (isDepth  ? depth
                                          : isNext ? std::to_string(100 + static_cast<double>(row + 1) * step)
                                                   : std::to_string(1000 + row * 37 % 50 * 20 + column * 7));
            }
            lines.push_back(line);
        }
    }
    return lines;
}

std::vector<std::string> rowsOf(const Form& form, const std::vector<std::string>& text) {
    MemoryFiles files;
    std::string bytes;
    for (const std::string& line : text) bytes += line + "\n";
    files.put("x.las", bytes);
    const Path file = "x.las";
    LasLines lines(files, file);
    LasFindings findings;
    LasDataLines dataLines(lines, findings, {});
    std::vector<LasWrapLine> first;
    for (const std::string& line : text) first.push_back(wrapLineOf(line));
    const std::size_t columns = columnsOf(form);
    LasWrappedRows wrapped(dataLines, learnWrapForm(first, columns, {100, form.saysStep ? step : 0}), columns,
                           findings);
    std::vector<std::string> rows;
    for (LasLine row; wrapped.next(row);) {
        if (row.ended) rows.emplace_back(row.text);
    }
    return rows;
}

} // namespace

TEST(LasWrappedRows, NoLostLinesMakeARowThatWasNotThere) {
    constexpr std::size_t rowCount = 16;
    for (const Form& form : forms) {
        SCOPED_TRACE(form.what);
        const std::vector<std::string> whole = linesOf(form, rowCount);
        const std::vector<std::string> rows = rowsOf(form, whole);
        ASSERT_EQ(rows.size(), rowCount);
        for (std::size_t gap = 1; gap <= 2; ++gap) {
            // Of two lines lost between the last two rows nothing behind them tells.
            const std::size_t end = gap == 1 ? whole.size() : whole.size() - 2 * form.layouts[0].size();
            // A step that is not said is known from the first two depths.
            // Beside a twin of the depth a line lost in the first row makes one file look like the other.
            const std::size_t begin = !form.saysStep   ? 2 * form.layouts[0].size()
                                      : form.hasTwin() ? form.layouts[0].size()
                                                       : 0;
            for (std::size_t lost = begin; lost + gap <= end; ++lost) {
                std::vector<std::string> text = whole;
                const auto first = text.begin() + static_cast<std::ptrdiff_t>(lost);
                text.erase(first, first + static_cast<std::ptrdiff_t>(gap));
                const std::vector<std::string> left = rowsOf(form, text);
                EXPECT_THAT(rows, ::testing::IsSupersetOf(left)) << gap << " lost from line " << lost + 1;
                if (lost < 4 * form.layouts[0].size() && form.hasTwin())
                    continue; // none is better than a guess
                EXPECT_GE(left.size(), rowCount - 5) << gap << " lost from line " << lost + 1;
            }
        }
    }
}
