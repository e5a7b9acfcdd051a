#include "lcu/run_names.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <optional>

namespace tarvik {

namespace {

constexpr std::string_view extension = ".kvx";

std::string stem(std::string_view hole, std::string_view toolCode) {
    return std::string(hole) + "_" + std::string(toolCode) + "_";
}

} // namespace

std::optional<int> runNumber(std::string_view name, std::string_view hole, std::string_view toolCode) {
    const std::string start = stem(hole, toolCode);
    constexpr std::size_t mostDigits = 6;
    if (!name.starts_with(start) || !name.ends_with(extension)) return std::nullopt;
    if (name.size() <= start.size() + extension.size()) return std::nullopt;
    const auto digits = name.substr(start.size(), name.size() - start.size() - extension.size());
    if (digits.size() > mostDigits || digits.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<int>(*parseInteger(digits));
}

std::string runFileName(std::string_view hole, std::string_view toolCode, int number) {
    return stem(hole, toolCode) + formatPicture(number, "00") + std::string(extension);
}

LoggingRuns CheckLoggingRuns(const Files& files, const Path& folder, std::string_view hole,
                             std::string_view toolCode) {
    LoggingRuns runs;
    for (const std::string& name : files.list(folder)) {
        const auto number = runNumber(name, hole, toolCode);
        if (!number) continue;
        ++runs.count;
        if (runs.latestFile.empty() || *number > runs.latest) {
            runs.latest = *number;
            runs.latestFile = folder / name;
        }
    }
    if (runs.count > 0) {
        const CivilTime written = files.modified(runs.latestFile);
        runs.lastRunText = formatDate(written, "dddd, dd-mmm-yyyy") + " at " + formatDate(written, "hh:mm");
    }
    return runs;
}

std::string loggingRunsText(const LoggingRuns& runs) {
    if (runs.count == 0) return {};
    if (runs.count == 1) return "Tool has been run once so far on " + runs.lastRunText;
    return "Tool has " + std::to_string(runs.count) + " runs so far, last run " + runs.lastRunText;
}

std::string depthRangeText(const std::optional<DepthRange>& range) {
    if (!range) return {};
    return "Depth range on file  " + formatPicture(range->smallest, "###0.00") + "  to  " +
           formatPicture(range->largest, "###0.00");
}

} // namespace tarvik
