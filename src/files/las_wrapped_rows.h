// Rows of LAS data that are wrapped over several lines.
//
// The first row that adds up to the number of columns shows how the file wraps; a row whose lines hold other
// numbers of values has lost or gained one and is dropped, since its values could stand in any channel.
#pragma once

#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/las_row.h"
#include "files/las_row_repair.h"

#include <utility>
#include <vector>

namespace tarvik {

class LasWrappedRows {
  public:
    LasWrappedRows(std::size_t columns, LasFindings& findings) : columns_(columns), findings_(findings) {}

    /// The row that this line completes; valid until the next call. Null while it is not complete.
    const LasRow* add(const LasLine& line);

    [[nodiscard]] bool inRow() const { return lineInRow_ > 0; }
    /// The line at which the row begins.
    [[nodiscard]] std::size_t firstLine() const { return firstLine_; }
    /// Rows dropped since it was asked last.
    [[nodiscard]] std::size_t takeDropped() { return std::exchange(dropped_, 0); }

  private:
    void begin(const LasLine& line);
    void drop();

    std::size_t columns_;
    LasFindings& findings_;
    std::vector<std::size_t> layout_; ///< values in each line of a row
    bool layoutKnown_ = false;
    LasRow row_;
    LasRow lineRow_;
    LasRowRepair repair_;
    std::size_t lineInRow_ = 0;
    std::size_t firstLine_ = 0;
    std::size_t dropped_ = 0;
};

} // namespace tarvik
