// Names and numbers of run files: hole + "_" + tool code + "_" + run number ("00") + ".kvx".
#pragma once

#include "files/run_file_reader.h"
#include "platform/files.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// The runs of one tool in one hole, as the project folder holds them.
struct LoggingRuns {
    int count = 0;
    int latest = 0;          ///< highest number on disk; 0 without runs
    Path latestFile;         ///< empty without runs
    std::string lastRunText; ///< when the latest run was last written, "dddd, dd-mmm-yyyy at hh:mm"

    [[nodiscard]] int next() const { return latest + 1; }
};

[[nodiscard]] std::string runFileName(std::string_view hole, std::string_view toolCode, int number);

/// Nothing when the name is not that of a run of the tool in the hole.
[[nodiscard]] std::optional<int> runNumber(std::string_view fileName, std::string_view hole,
                                           std::string_view toolCode);

/// Counts the runs in `folder`; a file whose number is no number is not one of them.
[[nodiscard]] LoggingRuns CheckLoggingRuns(const Files& files, const Path& folder, std::string_view hole,
                                           std::string_view toolCode);

/// "Tool has been run once so far on …" or "Tool has n runs so far, last run …"; empty without runs.
[[nodiscard]] std::string loggingRunsText(const LoggingRuns& runs);

/// "Depth range on file  12.30  to  48.75"; empty when the file holds no scan with a depth.
[[nodiscard]] std::string depthRangeText(const std::optional<DepthRange>& range);

} // namespace tarvik
