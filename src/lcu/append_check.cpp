#include "lcu/append_check.h"

#include "files/run_file_layout.h"

#include <algorithm>
#include <span>

namespace tarvik {

namespace {

/// The header has 20 name slots; a channel behind them reads back under another name.
bool sameChannelNames(const RunHeader& a, const RunHeader& b) {
    const auto named = [](const RunHeader& header) {
        return std::span(header.channels).first(std::min(header.channels.size(), run_file::slotCount));
    };
    return std::ranges::equal(named(a), named(b), {}, &RunChannel::name, &RunChannel::name);
}

/// Records of another kind behind those on file could not be told apart when they are read back.
bool sameRecords(const RunHeader& current, const RunFileInfo& latest) {
    const int values = static_cast<int>(current.channels.size()) - 1;
    return current.toolMode == latest.header.toolMode && sameChannelNames(current, latest.header) &&
           run_file::scanLength(values) == latest.shape.recordLength;
}

bool sameScale(const RunHeader& latest) {
    return run_file::versionNumber(latest.versionMajor, latest.versionMinor) >
           run_file::newestUnscaledVersion;
}

} // namespace

bool sameKindOfValues(const RunHeader& a, const RunHeader& b) {
    const std::size_t compared = std::min({a.channels.size(), b.channels.size(), run_file::slotCount});
    for (std::size_t i = 1; i < compared; ++i) { // the first is Speed
        if (isCalibrated(a.channels[i].calibration) != isCalibrated(b.channels[i].calibration)) return false;
    }
    return true;
}

std::optional<std::string> CheckLatestRunSpecs(const RunHeader& current, const RunFileInfo& latest) {
    const RunSetup& now = current.setup;
    const RunSetup& before = latest.header.setup;
    if (now.units != before.units) {
        return "Current depth units NOT the same as latest run file.\r\n"
               "Change depth units if you wish to append data.";
    }
    if (now.interval != before.interval) {
        return "Current sampling interval NOT the same as latest run file.\r\n"
               "Change sampling interval if you wish to append data.";
    }
    if (now.direction != before.direction) {
        return "Logging direction NOT the same as latest run file.\r\n"
               "Change logging direction if you wish to append data.";
    }
    if (now.sampling != before.sampling) {
        return "Sampling method NOT the same as latest run file.\r\n"
               "Change sampling method if you wish to append data.";
    }
    if (!sameRecords(current, latest)) {
        return "Tool mode or channels NOT the same as latest run file.\r\n"
               "Choose the tool mode of that run, or start a new run.";
    }
    if (!sameScale(latest.header)) {
        return "The latest run file was written by an older version, in another scale.\r\n"
               "Start a new run.";
    }
    if (!sameKindOfValues(current, latest.header)) {
        return "Some channels are counts now and engineering units in the latest run file, or the "
               "reverse.\r\n"
               "Choose the tool with its calibrations, or start a new run.";
    }
    return std::nullopt;
}

} // namespace tarvik
