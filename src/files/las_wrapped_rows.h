// Rows of LAS data that are wrapped over several lines.
//
// How many values each line of a row holds is learned from the first rows: the layout that repeats most. A
// row whose lines hold other numbers of values has lost or gained one and is dropped, since its values could
// stand in any channel.
#pragma once

#include "base/las_facts.h"
#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/las_row.h"
#include "files/las_row_repair.h"

#include <span>
#include <utility>
#include <vector>

namespace tarvik {

/// Values in each line of a row of `columns`; `counts` has those of the first lines. Empty when no row adds
/// up. Of layouts that fit equally often the one with the depth alone on its line is taken.
[[nodiscard]] std::vector<std::size_t> wrapLayout(std::span<const std::size_t> counts, std::size_t columns);

class LasWrappedRows {
  public:
    LasWrappedRows(std::size_t columns, const LasFacts& facts, LasFindings& findings)
        : columns_(columns), step_(facts.step), findings_(findings), repair_(facts.nullText) {}

    /// Reads ahead from where `lines` stand.
    void learn(LasLines lines);
    /// The row that is known to be whole with this line; valid until the next call. Null while there is none.
    const LasRow* add(const LasLine& line);
    /// The last row, which nothing follows.
    const LasRow* finish();

    [[nodiscard]] bool inRow() const { return lineInRow_ > 0; }
    /// The line at which the row that was returned last begins.
    [[nodiscard]] std::size_t firstLine() const { return firstLine_; }
    /// The line at which the row that is being read begins.
    [[nodiscard]] std::size_t beginLine() const { return beginLine_; }
    /// Rows dropped since it was asked last.
    [[nodiscard]] std::size_t takeDropped() { return std::exchange(dropped_, 0); }

  private:
    [[nodiscard]] bool eachAlone() const;
    [[nodiscard]] bool beginsRow() const;
    void passOver(std::size_t line);
    void dropRow();
    const LasRow* complete();

    std::size_t columns_;
    double step_; ///< of the header; not a number or 0 when it says none
    LasFindings& findings_;
    std::vector<std::size_t> layout_; ///< values in each line of a row
    LasRow row_;
    LasRow whole_; ///< adds up, but its last line may be the next row's depth
    LasRow lineRow_;
    LasRowRepair repair_;
    double depthBefore_ = 0;
    bool depthKnown_ = false;
    bool held_ = false;
    bool passingOver_ = false;
    std::size_t passed_ = 0; ///< lines passed over since the last row
    std::size_t lineInRow_ = 0;
    std::size_t beginLine_ = 0;
    std::size_t firstLine_ = 0;
    std::size_t dropped_ = 0;
};

} // namespace tarvik
