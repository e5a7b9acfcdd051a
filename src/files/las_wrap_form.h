// How the rows of a wrapped LAS file lie on its lines.
//
// LAS 2.0 wraps so: the depth alone on a line, then the values on lines of at most 80 characters. A file in
// which each row has the same number of values on its lines is read more strictly, by that layout: a line
// that was lost then shows at once.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tarvik {

struct LasWrapForm {
    /// Values on each line of a row. Empty: the depth alone, then lines of two values and more, the last one
    /// of any number.
    std::vector<std::size_t> layout;
    std::size_t rows = 0; ///< whole ones among the first lines of the file

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

/// Lines of the row that begins with the first of `counts` (values on each line); 0 when none does.
[[nodiscard]] std::size_t wrappedRowLength(const LasWrapForm& form, std::span<const std::size_t> counts,
                                           std::size_t columns);

/// The form in which most rows of the first lines are whole; of two equal ones a layout, and of two layouts
/// the one with the depth alone.
[[nodiscard]] LasWrapForm learnWrapForm(std::span<const std::size_t> counts, std::size_t columns);

} // namespace tarvik
