// What the tolerant reader mends in a row of data. A repair is taken only when the row then has as many
// columns as there are curves; otherwise the row stays as it is.
#pragma once

#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/las_row.h"

#include <string>

namespace tarvik {

/// What commas are in a file. It is one thing from its first row to its last.
enum class LasCommas { unknown, decimal, column };

class LasRowRepair {
  public:
    /// `nullText` as the header has it: a number without a point that may stand right behind another.
    explicit LasRowRepair(std::string nullText) : nullText_(std::move(nullText)) {}

    /// Reads the first rows, from where `lines` stand, for what their commas are. They are told by rows that
    /// add up one way only; where as many speak for one as for the other, commas stay unread.
    void learnCommas(LasLines lines, std::size_t columns);

    /// Decimal commas, commas between columns, numbers run together ("-999.25-999.25"), exponents with "D".
    /// `row` is the line as it was split; after a repair, as mended.
    void mend(const LasLine& line, std::size_t columns, LasRow& row, LasFindings& findings);

  private:
    bool take(std::size_t columns, LasRow& row);
    bool takeApart(std::string_view line);
    [[nodiscard]] bool standsAlone(std::string_view piece) const;
    [[nodiscard]] LasCommas commasOf(std::string_view line, std::size_t columns);

    std::string nullText_;
    LasCommas commas_ = LasCommas::unknown;
    std::string text_; ///< kept from row to row, so that its room is
    LasRow mended_;
};

} // namespace tarvik
