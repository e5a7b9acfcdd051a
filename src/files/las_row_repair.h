// What the tolerant reader mends in a row of data. A repair is taken only when the row then has as many
// columns as there are curves; otherwise the row stays as it is.
#pragma once

#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/las_row.h"

#include <string>

namespace tarvik {

class LasRowRepair {
  public:
    /// Decimal commas, commas between columns, numbers run together ("-999.25-999.25"), exponents with "D".
    /// `row` is the line as it was split; after a repair, as mended.
    void mend(const LasLine& line, std::size_t columns, LasRow& row, LasFindings& findings);

  private:
    bool take(std::size_t columns, LasRow& row);

    std::string text_; ///< kept from row to row, so that its room is
    LasRow mended_;
};

} // namespace tarvik
