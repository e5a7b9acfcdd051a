// How the rows of a wrapped LAS file lie on its lines.
//
// LAS 2.0 wraps so: the depth alone on a line, then the values on lines of at most 80 characters. A file in
// which each row has the same number of values on its lines is read more strictly, by that layout: a line
// that was lost then shows at once.
#pragma once

#include <cstddef>
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

struct LasWrapForm {
    /// Values on each line of a row. Empty: the depth alone, then lines of two values and more, the last one
    /// of any number.
    std::vector<std::size_t> layout;
    std::size_t rows = 0; ///< whole ones among the first lines of the file
    double step = 0;      ///< the header's, if the depths of these rows go on by it; else 0

    /// Whether a line with `values` can be line `at` (from 0) of a row of `columns`, which then has `sum`.
    [[nodiscard]] bool fits(std::size_t at, std::size_t values, std::size_t sum, std::size_t columns) const;
    [[nodiscard]] bool depthAlone() const { return layout.empty() || layout.front() == 1; }
    /// The lines of a row are alike: their numbers of values do not tell where a row begins.
    [[nodiscard]] bool uniform() const;
    /// A row's last line may look like the first of the next.
    [[nodiscard]] bool endsAsItBegins() const {
        return layout.empty() || (layout.size() > 1 && layout.front() == layout.back());
    }
    /// A line that looks like the first of a row may as well be another one of it.
    [[nodiscard]] bool beginMayMislead() const;
};

/// Whether a depth is followed by another that lies 1 to `most` whole steps further on.
[[nodiscard]] bool goesOnBy(double step, double from, double to, std::size_t most);

/// The form in which most rows of the first lines go on by the step, then the one in which most are whole; of
/// two equal ones a layout, and of two layouts the one with the depth alone. `step` is that of the header;
/// not a number or 0 when it says none.
[[nodiscard]] LasWrapForm learnWrapForm(std::span<const LasWrapLine> lines, std::size_t columns, double step);

} // namespace tarvik
