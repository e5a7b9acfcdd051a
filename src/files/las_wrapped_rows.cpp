#include "files/las_wrapped_rows.h"

#include <algorithm>

namespace tarvik {

const LasRow* LasWrappedRows::add(const LasLine& line) {
    splitLasRow(line.text, lineRow_);
    if (layoutKnown_) {
        if (inRow() && lineRow_.tokens != layout_[lineInRow_])
            repair_.mend(line, layout_[lineInRow_], lineRow_, findings_);
        if (inRow() && lineRow_.tokens != layout_[lineInRow_]) drop();
        if (!inRow() && lineRow_.tokens != layout_[0]) return nullptr; // of the row that was dropped
    }
    if (!inRow()) begin(line);
    if (!layoutKnown_) layout_.push_back(lineRow_.tokens);
    ++lineInRow_;
    row_.append(lineRow_);
    if (row_.tokens < columns_) return nullptr;
    const bool whole = row_.tokens == columns_;
    if (!whole) {
        drop();
        return nullptr;
    }
    layoutKnown_ = true;
    lineInRow_ = 0;
    return &row_;
}

void LasWrappedRows::begin(const LasLine& line) {
    firstLine_ = line.number;
    row_.clear();
    if (!layoutKnown_) layout_.clear();
}

void LasWrappedRows::drop() {
    findings_.add(LasOddity::damagedWrap, firstLine_);
    ++dropped_;
    lineInRow_ = 0;
}

} // namespace tarvik
