// Rows of LAS data that are wrapped over several lines, joined to one line each.
//
// A row is given on only when its lines fit the form of the file and what follows begins another row. Where
// they do not, a line was lost or gained, and the values could stand in any channel: the lines are dropped
// until the rows can be told apart again.
#pragma once

#include "files/las_data_lines.h"
#include "files/las_wrap_form.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tarvik {

class LasWrappedRows {
  public:
    LasWrappedRows(LasDataLines& lines, LasWrapForm form, std::size_t columns, LasFindings& findings)
        : lines_(lines), form_(std::move(form)), columns_(columns), findings_(findings) {
        rowLines_ = std::max<std::size_t>(1, form_.layout.size());
    }

    /// The next row as one line; its text is valid until the next call. What the file ends in counts as a
    /// line without an end.
    bool next(LasLine& row);

    /// Rows dropped since it was asked last, as many as the lines make that were passed over.
    [[nodiscard]] std::size_t takeDropped() { return std::exchange(dropped_, 0) + lines_.takeDropped(); }

  private:
    struct Piece {
        std::size_t values = 0;
        std::size_t number = 0; ///< of the line
        std::size_t end = 0;    ///< of its text in `text_`
        double first = 0;       ///< its first value
        bool ended = true;
    };

    [[nodiscard]] std::size_t waiting() const { return pieces_.size() - front_; }
    [[nodiscard]] const Piece& piece(std::size_t i) const { return pieces_[front_ + i]; }
    bool readLine();
    bool readUpTo(std::size_t lines);
    std::size_t rowLength(std::size_t at);
    std::size_t unsureLines(std::size_t lines);
    bool depthsGoOn(std::size_t lines);
    [[nodiscard]] bool comesNext(std::size_t lines) const;
    void give(std::size_t lines, LasLine& row);
    void passOver(std::size_t lines);
    void settleDropped(std::size_t linesOfARow);
    void forget(std::size_t lines);

    LasDataLines& lines_;
    LasWrapForm form_;
    std::size_t columns_;
    LasFindings& findings_;
    std::string text_; ///< of the lines that wait, a blank behind each
    std::vector<Piece> pieces_;
    std::size_t front_ = 0; ///< the first piece that waits
    std::size_t given_ = 0; ///< lines of the row given last, still waiting
    double depthBefore_ = 0;
    bool depthKnown_ = false;
    bool lost_ = false;        ///< nobody knows where the next row begins
    std::size_t passed_ = 0;   ///< lines passed over since the last row
    std::size_t rowLines_ = 1; ///< of the last row
    std::size_t dropped_ = 0;
};

} // namespace tarvik
