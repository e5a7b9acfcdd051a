#include "lcu/append_comparison.h"

#include "base/number_picture.h"
#include "base/sampling_words.h"
#include "files/run_file_layout.h"
#include "lcu/append_check.h"
#include "lcu/earlier_run.h"

#include <algorithm>

namespace tarvik {

namespace {

std::string toolModeText(const RunHeader& header) {
    const std::string mode = std::to_string(header.toolMode);
    return header.toolModeName.empty() ? mode : mode + "  " + header.toolModeName;
}

/// The names that a header has room for; a channel behind them reads back under another name.
std::vector<std::string> channelNames(const RunHeader& header) {
    std::vector<std::string> names;
    const std::size_t slots = std::min(header.channels.size(), run_file::slotCount);
    for (std::size_t i = 0; i < slots; ++i) names.push_back(header.channels[i].name);
    return names;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

AppendRow row(std::string what, std::string onFile, std::string now, bool agrees) {
    return {std::move(what), std::move(onFile), std::move(now), agrees};
}

AppendRow channelsRow(const RunHeader& current, const RunFileInfo& latest) {
    const auto before = channelNames(latest.header);
    const auto now = channelNames(current);
    return row("Channels", joined(before), joined(now), before == now);
}

AppendRow recordRow(const RunHeader& current, const RunFileInfo& latest) {
    const std::size_t now = run_file::scanLength(static_cast<int>(current.channels.size()) - 1);
    return row("Record length", std::to_string(latest.shape.recordLength) + " bytes",
               std::to_string(now) + " bytes", latest.shape.recordLength == now);
}

AppendRow scaleRow(const RunHeader& latest) {
    const int version = run_file::versionNumber(latest.versionMajor, latest.versionMinor);
    const bool newer = version > run_file::newestUnscaledVersion;
    return row("Scale of the file", newer ? "as now" : "of an older version", "as now", newer);
}

/// The channels whose values are counts, in words.
std::string countsText(const RunHeader& header) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < std::min(header.channels.size(), run_file::slotCount); ++i) {
        if (!isCalibrated(header.channels[i].calibration)) names.push_back(header.channels[i].name);
    }
    return names.empty() ? "none" : joined(names);
}

AppendRow countsRow(const RunHeader& current, const RunHeader& latest) {
    return row("Channels in counts", countsText(latest), countsText(current),
               sameKindOfValues(current, latest));
}

AppendRow serialRow(const RunHeader& current, const RunHeader& latest) {
    const std::string &before = latest.tool.serialNumber, &now = current.tool.serialNumber;
    AppendRow made = row("Serial number of the tool", before, now, before == now);
    made.refuses = false;
    return made;
}

AppendRow calibrationRow(const RunHeader& current, const RunHeader& latest) {
    const auto others = recalibratedChannels(current, latest);
    AppendRow made = row("Calibrations", "as the file names them",
                         others.empty() ? "the same" : "others for " + joined(others), others.empty());
    made.refuses = false;
    return made;
}

} // namespace

std::vector<AppendRow> appendComparison(const RunHeader& current, const RunFileInfo& latest) {
    const RunSetup& now = current.setup;
    const RunSetup& before = latest.header.setup;
    const auto interval = [](const RunSetup& setup) {
        return intervalText(setup.sampling, setup.interval, setup.units);
    };
    return {row("Depth units", std::string(depthUnitsText(before.units)),
                std::string(depthUnitsText(now.units)), before.units == now.units),
            row("Sampling interval", interval(before), interval(now), before.interval == now.interval),
            row("Logging direction", std::string(directionText(before.direction)),
                std::string(directionText(now.direction)), before.direction == now.direction),
            row("Sampling method", std::string(samplingText(before.sampling)),
                std::string(samplingText(now.sampling)), before.sampling == now.sampling),
            row("Tool mode", toolModeText(latest.header), toolModeText(current),
                latest.header.toolMode == current.toolMode),
            channelsRow(current, latest),
            recordRow(current, latest),
            scaleRow(latest.header),
            countsRow(current, latest.header),
            serialRow(current, latest.header),
            calibrationRow(current, latest.header)};
}

std::vector<AppendRow> appendComparison(const RunHeader& current, const Files& files, const Path& latest) {
    try {
        return appendComparison(current, readRunHeader(files, latest));
    } catch (const Failure& failure) {
        return {row("Run file", failure.what(), "", false)};
    }
}

std::string overlapWarning(const DepthRange& onFile, double depth, Direction direction) {
    constexpr double touching = 0.005; // half of what the depth is shown with
    const bool up = direction == Direction::up;
    const double last = up ? onFile.smallest : onFile.largest;
    if (up ? depth <= last + touching : depth >= last - touching) return {};
    return "The tool stands at " + formatPicture(depth, "###0.00") + ", the file has scans to " +
           formatPicture(last, "###0.00") + ": what is appended lies over them.";
}

std::string appendVerdict(const std::vector<AppendRow>& rows) {
    std::vector<std::string> differing;
    for (const AppendRow& one : rows) {
        if (one.refuses && !one.agrees) differing.push_back(one.what);
    }
    if (!differing.empty()) return "An append would be refused, because of: " + joined(differing) + ".";
    for (const AppendRow& one : rows) {
        if (!one.agrees) differing.push_back(one.what);
    }
    if (differing.empty()) return "The settings agree with the latest run: it can be appended to.";
    return "It can be appended to, but these differ from the latest run: " + joined(differing) + ".";
}

} // namespace tarvik
