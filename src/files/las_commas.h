// What commas are in the data of a LAS file: marks of decimals, or ends of columns. They are one thing from
// the first row to the last, and which one must be proven.
#pragma once

#include "files/las_findings.h"
#include "files/las_row.h"

#include <string>
#include <string_view>

namespace tarvik {

enum class LasCommas { unread, decimal, column };

/// A comma between digits becomes a point, in a token without a point or another comma. False where there is
/// none.
bool mendDecimalCommas(std::string& text);

/// Commas as blanks into `text`; nothing between two of them is a column without a value.
void columnCommas(std::string_view line, std::string& text);

/// Looks at row after row for one that can be read one way only. Decimal commas: the row then has as many
/// numbers as there are columns. Commas between columns: it then has as many columns, and one of its commas
/// cannot stand in a number ("1,10,20", "1.5,2.5", "1, 10"); of "100,50" alone nobody knows whether it lost
/// a column. Groups of three digits, which may be thousands, prove nothing.
class LasCommaProof {
  public:
    void look(std::string_view row, std::size_t line, std::size_t columns);

    /// Unread without a proof and where rows prove both, which is said.
    [[nodiscard]] LasCommas verdict(LasFindings& findings) const;

  private:
    [[nodiscard]] LasCommas provenBy(std::string_view row, std::size_t columns);

    std::size_t decimalLine_ = 0; ///< the first row that proves it; 0 while none does
    std::size_t columnLine_ = 0;
    std::string text_; ///< kept from row to row, so that its room is
    LasRow row_;
};

} // namespace tarvik
