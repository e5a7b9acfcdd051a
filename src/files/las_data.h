// The data section of a LAS file, into the review arrays.
#pragma once

#include "base/review_log.h"
#include "files/las_header.h"
#include "files/las_lines.h"
#include "files/progress.h"

namespace tarvik {

/// Whether the rows that `lines` brings next take several lines each although the header says nothing of it.
[[nodiscard]] bool rowsLookWrapped(const LasLines& lines, const LasHeader& header);

/// Reads the rows that `lines` brings next. The index is never "no value"; a row without one is dropped. In a
/// channel the null value (to 1e-4) and what is no number is no value. The first 20 channels are loaded, at
/// most 80,000 steps; rows behind them are counted only. Decreasing depths are turned round. `tolerant` also
/// takes wrapped rows and mends what can be mended without guessing.
void loadLasData(LasLines& lines, const LasHeader& header, bool tolerant, ReviewLog& review,
                 LasFindings& findings, const Progress& progress);

} // namespace tarvik
