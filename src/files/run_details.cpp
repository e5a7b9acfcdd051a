#include "files/run_details.h"

#include "base/number_picture.h"
#include "base/sampling_words.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace tarvik {

namespace {

constexpr std::size_t titleWidth = 11;

/// A polynomial of more terms than there are coefficients comes from a damaged header.
std::span<const double> coefficientsOf(const Calibration& calibration) {
    const int terms = std::clamp(calibration.order + 1, 0, maxCoefficients);
    return std::span(calibration.coefficients).first(static_cast<std::size_t>(terms));
}

std::span<const std::pair<float, float>> pointsOf(const Calibration& calibration) {
    const int points = std::clamp(calibration.pointCount, 0, maxCalibrationPoints);
    return std::span(calibration.points).first(static_cast<std::size_t>(points));
}

std::string runText(const RunHeader& header) {
    const RunSetup& setup = header.setup;
    std::string text = header.runDate + " " + header.startTime + ", ";
    text += samplingText(setup.sampling);
    text += " sampling every " + intervalText(setup.sampling, setup.interval, setup.units) + ", ";
    text += directionText(setup.direction);
    return text;
}

std::string holeText(const RunHeader& header) {
    if (header.project.empty()) return header.hole.holeId;
    return header.hole.holeId + "  (project " + header.project + ")";
}

std::string toolText(const EquipmentIdentity& tool) {
    return tool.code.empty() ? tool.name : tool.code + "  " + tool.name + "  SN-" + tool.serialNumber;
}

std::string scansText(const ReviewLog& log) {
    std::string text = std::to_string(log.steps());
    if (log.steps() == 0) return text;
    const auto [smallest, largest] = std::ranges::minmax(log.depth); // an append may lie over what was there
    text +=
        ", depth " + formatPicture(smallest, "###0.00") + " to " + formatPicture(largest, "###0.00") + " ";
    text += log.depthUnit();
    return text;
}

std::string durationText(double seconds) {
    constexpr double minute = 60;
    if (seconds < 2 * minute) return formatPicture(seconds, "##0.0") + " s";
    return formatPicture(seconds / minute, "##0.0") + " minutes";
}

std::string line(const DetailRow& row) {
    const std::size_t gap = row.title.size() < titleWidth ? titleWidth - row.title.size() : 2;
    return row.title + std::string(gap, ' ') + row.value + "\n";
}

} // namespace

std::string skippedText(const ReviewLog& log) {
    std::string text;
    if (log.skippedScans > 0) {
        const bool feet = log.header.setup.units == DepthUnits::feet;
        text = std::to_string(log.skippedScans) + " scans without a valid depth (less than 2000 " +
               (feet ? "ft)" : "m)");
    }
    if (log.damagedScans > 0) {
        if (!text.empty()) text += " and ";
        text += std::to_string(log.damagedScans) +
                (log.damagedScans == 1 ? " damaged record" : " damaged records");
    }
    return text;
}

std::string readingRemark(const ReviewLog& log) {
    std::vector<std::string> remarks;
    if (const std::string skipped = skippedText(log); !skipped.empty())
        remarks.push_back(skipped + " are left out of what is shown, printed and exported");
    if (log.truncated) remarks.push_back("the file holds more than the 80000 steps that are shown");
    if (log.partialBytes > 0)
        remarks.push_back("the last record is torn, " + std::to_string(log.partialBytes) + " bytes not read");
    if (log.las && log.las->droppedRows > 0)
        remarks.push_back(std::to_string(log.las->droppedRows) +
                          (log.las->droppedRows == 1 ? " row was" : " rows were") +
                          " dropped, Details tells why");
    if (log.las && log.las->fragmentBytes > 0)
        remarks.push_back("the last line is torn, " + std::to_string(log.las->fragmentBytes) +
                          " bytes not read");
    std::string text;
    for (const std::string& remark : remarks) text += (text.empty() ? "" : "; ") + remark;
    return text.empty() ? text : text + ".";
}

std::vector<DetailRow> runSummary(const ReviewLog& log, const Path& file) {
    const RunHeader& header = log.header;
    std::vector<DetailRow> rows{{"File", file.string()},
                                {"Hole", holeText(header)},
                                {"Tool", toolText(header.tool)},
                                {"Winch", header.winch.name},
                                {"Run", log.las ? header.runDate : runText(header)},
                                {"Scans", scansText(log)}};
    std::erase_if(rows, [](const DetailRow& row) { return trimmed(row.value).empty(); });
    if (!skippedText(log).empty()) rows.push_back({"Left out", skippedText(log)});
    if (log.partialBytes > 0) {
        rows.push_back({"Torn", std::to_string(log.partialBytes) + " bytes of a last record, not read"});
    }
    return rows;
}

std::vector<DetailRow> runRows(const ReviewLog& log, const Path& file) {
    const RunHeader& header = log.header;
    std::vector<DetailRow> rows = runSummary(log, file);
    const auto add = [&](const char* title, const std::string& value) {
        if (!trimmed(value).empty()) rows.push_back({title, value});
    };
    if (!log.las) {
        add("Tool mode", std::to_string(header.toolMode) + "  " + header.toolModeName);
        add("Winch code", header.winch.code + "  SN-" + header.winch.serialNumber);
    }
    add("Depth units", std::string(log.depthUnit()));
    if (!log.time.empty()) add("Duration", durationText(std::abs(log.time.back() - log.time.front())));
    add("Processing", header.specialKind);
    if (!log.las) {
        add("Data", header.dataState);
        add("File version", formatPicture(header.versionMajor + header.versionMinor / 100.0, "0.00"));
    }
    if (log.reversed) add("Order", "logged upwards, shown from the top down");
    if (log.truncated) add("Cut", "the file holds more than the 80000 steps that are shown");
    return rows;
}

std::vector<DetailRow> holeRows(const HoleDetails& hole) {
    const std::array<std::pair<const char*, const std::string*>, 17> all{
        {{"Hole", &hole.holeId},
         {"Company", &hole.company},
         {"Area", &hole.area},
         {"Prospect", &hole.prospect},
         {"Coordinates", &hole.coordinates},
         {"Contractor", &hole.contractor},
         {"Operator", &hole.operatorName},
         {"Driller's depth", &hole.drillerDepth},
         {"Hole diameter", &hole.diameter},
         {"Permanent datum", &hole.permanentDatum},
         {"Collar elevation", &hole.collarElevation},
         {"Casing type", &hole.casingType},
         {"Casing depth", &hole.casingDepth},
         {"Casing diameter", &hole.casingDiameter},
         {"Casing thickness", &hole.casingThickness},
         {"Fluid type", &hole.fluidType},
         {"Fluid level", &hole.fluidLevel}}};
    std::vector<DetailRow> rows;
    for (const auto& [title, text] : all) {
        if (!trimmed(*text).empty()) rows.push_back({title, std::string(trimmed(*text))});
    }
    return rows;
}

CalibrationLines calibrationLines(const Calibration& calibration) {
    CalibrationLines lines;
    lines.source = calibration.fitName + " " + calibration.identifier + ", " + calibration.date + " " +
                   calibration.time + " by " + calibration.calibratedBy + ", " + calibration.kind + ", " +
                   calibration.state;
    lines.polynomial = "order " + std::to_string(calibration.order) + ":";
    for (const double coefficient : coefficientsOf(calibration)) {
        lines.polynomial += " " + shortestNumber(coefficient);
    }
    for (const auto& [reading, reference] : pointsOf(calibration)) {
        lines.points += (lines.points.empty() ? "points: (" : " (") + shortestNumber(reading) + ", " +
                        shortestNumber(reference) + ")";
    }
    return lines;
}

std::vector<ChannelDetails> channelDetails(const ReviewLog& log) {
    std::vector<ChannelDetails> details;
    for (std::size_t i = 0; i < log.channels.size(); ++i) {
        const ReviewChannel& channel = log.channels[i];
        const bool described = i < log.header.channels.size();
        details.push_back({channel.name, channel.unit, channel.calibrated,
                           described ? log.header.channels[i].calibration : Calibration{}});
    }
    return details;
}

std::string runDetailsText(const ReviewLog& log, const Path& file) {
    constexpr std::string_view indent = "             ";
    std::string text;
    for (const DetailRow& row : runSummary(log, file)) text += line(row);
    for (const ChannelDetails& channel : channelDetails(log)) {
        text += line({"Channel", channel.name + "  " + channel.unit +
                                     (channel.calibrated ? "" : "  (not calibrated: counts)")});
        const CalibrationLines lines = calibrationLines(channel.calibration);
        for (const std::string& one : {lines.source, lines.polynomial, lines.points}) {
            if (!one.empty()) text.append(indent).append(one).append("\n");
        }
    }
    return text;
}

std::string importText(const ReviewLog& log) {
    std::string text;
    if (!log.las) return text;
    for (const std::string& finding : log.las->findings) text.append(finding).append("\n");
    return text;
}

} // namespace tarvik
