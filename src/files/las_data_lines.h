// The lines of a data section that hold values; what else stands there is passed over and said.
#pragma once

#include "files/las_findings.h"
#include "files/las_lines.h"
#include "files/progress.h"

#include <utility>

namespace tarvik {

class LasDataLines {
  public:
    /// From where `lines` stand. Whoever watches is told how far the file has been read.
    LasDataLines(LasLines& lines, LasFindings& findings, Progress progress)
        : lines_(lines), findings_(findings), progress_(std::move(progress)) {}

    /// False when no line is left.
    bool next(LasLine& line);

    /// Rows that were passed over since it was asked last: lines too long to be kept.
    [[nodiscard]] std::size_t takeDropped() { return std::exchange(dropped_, 0); }

  private:
    void tellProgress();
    bool holdsValues(LasLine& line);
    void endAtMark(LasLine& line);

    LasLines& lines_;
    LasFindings& findings_;
    Progress progress_;
    int told_ = -1;
    bool behindData_ = false;
    std::size_t dropped_ = 0;
};

} // namespace tarvik
