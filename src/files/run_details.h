// What a run in review says of itself, as rows of title and value: for the details screen, for `tarvik info`,
// and as text for whoever passes it on.
#pragma once

#include "base/review_log.h"
#include "platform/files.h"

#include <string>
#include <vector>

namespace tarvik {

struct DetailRow {
    std::string title;
    std::string value;
};

/// "51 scans without a valid depth (less than 2000 ft)", damaged records behind them; empty when no scan was
/// left out in reading.
[[nodiscard]] std::string skippedText(const ReviewLog& log);

/// What reading the file left out, cut or repaired, as one sentence for whoever looks at the log; empty when
/// the log is whole.
[[nodiscard]] std::string readingRemark(const ReviewLog& log);

/// File, hole, tool, winch, sampling, scans, as far as the file says; a line for skipped scans and one for a
/// torn record only when there are such.
[[nodiscard]] std::vector<DetailRow> runSummary(const ReviewLog& log, const Path& file);

/// The summary and, behind it, what only a screen has room for: mode, winch in full, duration, what was done
/// to the data while loading.
[[nodiscard]] std::vector<DetailRow> runRows(const ReviewLog& log, const Path& file);

/// The hole's header texts; what was never entered is left out.
[[nodiscard]] std::vector<DetailRow> holeRows(const HoleDetails& hole);

/// Where a calibration comes from, its polynomial, its points; the last only when it has points.
struct CalibrationLines {
    std::string source;
    std::string polynomial;
    std::string points;
};
[[nodiscard]] CalibrationLines calibrationLines(const Calibration& calibration);

struct ChannelDetails {
    std::string name;
    std::string unit;
    bool calibrated = true; ///< false: the values are counts
    Calibration calibration;
};

/// One for each recorded channel. A channel that the header does not describe has the default calibration.
[[nodiscard]] std::vector<ChannelDetails> channelDetails(const ReviewLog& log);

/// What was dropped, converted or repaired while a LAS file was loaded, one line each, ended by "\n"; empty
/// for a run file and for a LAS file that was loaded as it stands.
[[nodiscard]] std::string importText(const ReviewLog& log);

/// Everything, one line each, ended by "\n".
[[nodiscard]] std::string runDetailsText(const ReviewLog& log, const Path& file);

} // namespace tarvik
