// What the tolerant reader mends in a row of data. A repair is taken only when the row then has as many
// columns as there are curves; otherwise the row stays as it is.
#pragma once

#include "files/las_column_decimals.h"
#include "files/las_commas.h"
#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/las_row.h"

#include <string>
#include <utility>

namespace tarvik {

class LasRowRepair {
  public:
    LasRowRepair(std::size_t columns, std::string nullText)
        : columns_(columns), decimals_(std::move(nullText)) {}

    /// One of the first rows, for what commas are and how many decimals each column has.
    void learn(const LasLine& line);
    /// Behind the last of them.
    void settle(LasFindings& findings) { commas_ = proof_.verdict(findings); }

    /// Decimal commas, commas between columns, numbers run together ("-999.25-999.25"), exponents with "D".
    /// `row` is the line as it was split; after a repair, as mended. False for a row that its commas keep
    /// from adding up: nobody knows then which numbers it holds, not even the first.
    [[nodiscard]] bool mend(const LasLine& line, LasRow& row, LasFindings& findings);

  private:
    void keepWhatIsSure(std::string_view line, LasRow& row) const;
    bool mendColumnCommas(const LasLine& line, LasRow& row, LasFindings& findings);
    bool take(LasRow& row);
    bool takeApart(std::string_view line);

    std::size_t columns_;
    LasCommaProof proof_;
    LasColumnDecimals decimals_;
    LasCommas commas_ = LasCommas::unread;
    std::string text_; ///< kept from row to row, so that its room is
    LasRow mended_;
};

} // namespace tarvik
