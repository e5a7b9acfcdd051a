#include "files/las_wrapped_rows.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr std::size_t open = static_cast<std::size_t>(-1); ///< the row needs lines that are not there yet

} // namespace

bool LasWrappedRows::next(LasLine& row) {
    forget(std::exchange(given_, 0));
    while (waiting() > 0 || readLine()) {
        const std::size_t lines = rowLength(0);
        if (lines == open && !lost_) { // the file ends inside the row
            give(waiting(), row);
            row.ended = false;
            return true;
        }
        const std::size_t unsure = lines == 0 || lines == open ? 1 : unsureLines(lines);
        if (unsure == 0) {
            give(lines, row);
            return true;
        }
        passOver(unsure);
        lost_ = unsure == 1;
    }
    settleDropped(rowLines_);
    return false;
}

bool LasWrappedRows::readLine() {
    LasLine line;
    if (!lines_.next(line)) return false;
    const LasWrapLine values = wrapLineOf(line.text);
    text_.append(line.text) += ' ';
    pieces_.push_back({values.values, line.number, text_.size(), values.first, line.ended});
    return true;
}

bool LasWrappedRows::readUpTo(std::size_t lines) {
    while (waiting() < lines) {
        if (!readLine()) return false;
    }
    return true;
}

/// Lines of the row that begins at line `at` of those that wait; 0 when none does.
std::size_t LasWrappedRows::rowLength(std::size_t at) {
    std::size_t sum = 0;
    for (std::size_t i = 0; readUpTo(at + i + 1); ++i) {
        const std::size_t values = piece(at + i).values;
        sum += values;
        if (!form_.fits(i, values, sum, columns_)) return 0;
        if (sum == columns_) return i + 1;
    }
    return open;
}

/// Lines to drop of a row that fits; none when it is sure. A row whose last line may be the first of the next
/// is sure when what follows fits too. The first row behind lost lines, if its own first line may be another
/// one, only shows where the rows behind it begin.
std::size_t LasWrappedRows::unsureLines(std::size_t lines) {
    if (form_.guess) return 1;
    if (form_.endsAsItBegins() && readUpTo(lines + 1)) {
        const std::size_t next = piece(lines).values;
        const bool fits = form_.layout.empty() ? form_.fits(0, next, next, columns_) : rowLength(lines) > 0;
        if (!fits) return 1;
    }
    if (std::abs(form_.step) > 0 && !depthsGoOn(lines)) return 1;
    if (lost_ && form_.repeats()) return form_.step == 0 ? 1 : 0; // without a step it would be a guess
    return lost_ && form_.beginMayMislead() && !comesNext(lines) ? lines : 0;
}

/// The depth goes on by the step from row to row; where it does not, lines of both may be lost, and what is
/// left of the two looks like one row. With lines that are all alike only the depth shows where a row begins:
/// a row that holds the next depth among its own values has lost a line, unless a curve always holds it.
bool LasWrappedRows::depthsGoOn(std::size_t lines) {
    const double depth = piece(0).first;
    if (form_.repeats()) {
        const bool known = depthKnown_ || !std::isnan(form_.start);
        if (known && !comesNext(lines)) return false;
        for (std::size_t i = 1; i < lines; ++i) {
            const bool next = goesOnBy(form_.step, depth, piece(i).first, 1);
            const bool usual = form_.holdsNextDepth(i);
            if (usual ? lost_ && !next : next) return false;
        }
    }
    return !readUpTo(lines + 1) || goesOnBy(form_.step, depth, piece(lines).first, 1);
}

/// Whether the depth of the row that waits is one of those that come next, the lines passed over counted.
bool LasWrappedRows::comesNext(std::size_t lines) const {
    const double before = depthKnown_ ? depthBefore_ : form_.start - form_.step;
    const std::size_t most = lost_ ? 2 + passed_ / lines : 1;
    return form_.step != 0 && goesOnBy(form_.step, before, piece(0).first, most);
}

void LasWrappedRows::give(std::size_t lines, LasLine& row) {
    const Piece& last = piece(lines - 1);
    const std::size_t begin = front_ == 0 ? 0 : pieces_[front_ - 1].end;
    row = {.text = std::string_view(text_).substr(begin, last.end - begin - 1),
           .number = piece(0).number,
           .ended = last.ended,
           .tooLong = false};
    depthBefore_ = piece(0).first;
    depthKnown_ = !std::isnan(depthBefore_);
    given_ = lines;
    lost_ = false;
    settleDropped(lines);
}

/// As many rows as the lines passed over make.
void LasWrappedRows::settleDropped(std::size_t linesOfARow) {
    if (passed_ > 0) dropped_ += std::max<std::size_t>(1, (passed_ + linesOfARow / 2) / linesOfARow);
    passed_ = 0;
    rowLines_ = linesOfARow;
}

void LasWrappedRows::passOver(std::size_t lines) {
    for (std::size_t i = 0; i < lines; ++i) findings_.add(LasOddity::damagedWrap, piece(i).number);
    passed_ += lines;
    forget(lines);
}

/// The room is used again when half of it is behind.
void LasWrappedRows::forget(std::size_t lines) {
    front_ += lines;
    if (front_ == 0 || 2 * front_ < pieces_.size()) return;
    const std::size_t behind = pieces_[front_ - 1].end;
    text_.erase(0, behind);
    pieces_.erase(pieces_.begin(), pieces_.begin() + static_cast<std::ptrdiff_t>(front_));
    for (Piece& piece : pieces_) piece.end -= behind;
    front_ = 0;
}

} // namespace tarvik
