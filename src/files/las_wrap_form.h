// How the rows of a wrapped LAS file lie on its lines.
//
// LAS 2.0 wraps so: the depth alone on a line, then the values on lines of at most 80 characters. A file in
// which each row has the same number of values on its lines is read more strictly, by that layout: a line
// that was lost then shows at once.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

namespace tarvik {

/// A line of the data as far as the form needs it.
struct LasWrapLine {
    std::size_t values = 0;
    double first = 0; ///< its first value; not a number where that is none
};

/// A decimal comma in the first value counts as a point: whatever commas are in the file, it can be a depth.
[[nodiscard]] LasWrapLine wrapLineOf(std::string_view line);

inline constexpr double noStart = std::numeric_limits<double>::quiet_NaN();

struct LasWrapForm {
    /// Values on each line of a row. Empty: the depth alone, then lines of two values and more, the last one
    /// of any number.
    std::vector<std::size_t> layout;
    std::size_t rows = 0; ///< whole ones among the first lines of the file
    double step = 0;      ///< by which the depths of these rows go on; 0 when they go by none
    double start =
        noStart; ///< the header's, if the first depths lie there; with lines lost they may come later
    /// Of a layout that repeats in itself: lines whose first value is, in most rows, the depth of the next
    /// row.
    std::vector<bool> nextDepth = {};
    bool guess = false; ///< a curve goes on as the depths do, and nothing shows which of the two is the depth

    /// Whether a line with `values` can be line `at` (from 0) of a row of `columns`, which then has `sum`.
    [[nodiscard]] bool fits(std::size_t at, std::size_t values, std::size_t sum, std::size_t columns) const;
    [[nodiscard]] bool depthAlone() const { return layout.empty() || layout.front() == 1; }
    /// Lines of the layout until it begins again; 0 without a layout.
    [[nodiscard]] std::size_t period() const;
    /// The lines do not tell by their numbers of values where a row begins: they are all alike, or each part
    /// of the row is like the other.
    [[nodiscard]] bool repeats() const { return period() < layout.size(); }
    [[nodiscard]] bool holdsNextDepth(std::size_t line) const {
        return line < nextDepth.size() && nextDepth[line];
    }
    /// A row's last line may look like the first of the next.
    [[nodiscard]] bool endsAsItBegins() const {
        return layout.empty() || (layout.size() > 1 && layout.front() == layout.back());
    }
    /// A line that looks like the first of a row may as well be another one of it.
    [[nodiscard]] bool beginMayMislead() const;
};

/// Whether a depth is followed by another that lies 1 to `most` whole steps further on.
[[nodiscard]] bool goesOnBy(double step, double from, double to, std::size_t most);

/// Whether the lines, of which the header says that each is a row, make rows only together: none has all
/// values, and what they begin with goes up and down.
[[nodiscard]] bool looksWrapped(std::span<const LasWrapLine> lines, std::size_t columns);

/// What the header says of the depths; not a number where it says nothing.
struct LasDepthFacts {
    double start = 0;
    double step = 0; ///< 0: by no step
};

/// The form in which most rows of the first lines go on by the step, the other way too if its sign is wrong;
/// a beginning at the header's start counts as two such rows if half of the values are in whole rows. Then
/// the one in which most depths go the same way, the one with most whole rows; of two equal ones a layout,
/// and of two layouts the one with the depth alone. Where the header says no step, the first one counts if
/// three in four rows go on by it.
[[nodiscard]] LasWrapForm learnWrapForm(std::span<const LasWrapLine> lines, std::size_t columns,
                                        const LasDepthFacts& header);

} // namespace tarvik
