// tarvik info: what a run file or a LAS file holds.
#include "cli/json.h"
#include "cli/las_description.h"
#include "cli/review.h"

#include "base/number_picture.h"
#include "files/run_details.h"

#include <iostream>
#include <span>

namespace tarvik {

namespace {

struct RunFacts {
    Path file;
    RunFileInfo info;
    ReviewLog log;
};

std::span<const double> coefficientsOf(const Calibration& calibration) {
    return std::span(calibration.coefficients).first(static_cast<std::size_t>(calibration.order) + 1);
}

std::span<const std::pair<float, float>> pointsOf(const Calibration& calibration) {
    return std::span(calibration.points).first(static_cast<std::size_t>(calibration.pointCount));
}

std::string calibrationJson(const Calibration& calibration) {
    JsonObject members;
    members.add("fit", calibration.fitName);
    members.add("identifier", calibration.identifier);
    members.add("date", calibration.date);
    members.add("time", calibration.time);
    members.add("calibrated_by", calibration.calibratedBy);
    members.add("kind", calibration.kind);
    members.add("state", calibration.state);
    members.add("sensor", calibration.sensorName);
    members.add("serial", calibration.serialNumber);
    members.add("order", static_cast<double>(calibration.order));
    members.raw("coefficients",
                jsonArray(coefficientsOf(calibration), [](double c) { return jsonNumber(c); }));
    members.raw("points", jsonArray(pointsOf(calibration), [](const std::pair<float, float>& point) {
                    return "[" + jsonNumber(point.first) + ", " + jsonNumber(point.second) + "]";
                }));
    return members.inLine();
}

std::string channelsJson(const ReviewLog& log) {
    return jsonArray(log.header.channels, [](const RunChannel& channel) {
        JsonObject members;
        members.add("name", channel.name);
        members.add("unit", channel.unit);
        members.raw("calibration", calibrationJson(channel.calibration));
        return members.inLine();
    });
}

void printJson(const RunFacts& facts) {
    const RunHeader& header = facts.info.header;
    const auto depthOr = [&](bool first) -> std::string {
        if (facts.log.steps() == 0) return "null";
        return jsonNumber(first ? facts.log.extent().from : facts.log.extent().to);
    };
    JsonObject object;
    object.add("file", facts.file.string());
    object.add("kind", "kvx");
    object.raw("format_version", formatPicture(header.versionMajor + header.versionMinor / 100.0, "0.00"));
    object.add("tool", header.tool.code);
    object.add("tool_name", header.tool.name);
    object.add("serial", header.tool.serialNumber);
    object.add("winch", header.winch.name);
    object.add("project", header.project);
    object.add("hole", header.hole.holeId);
    object.add("date", header.runDate);
    object.add("units", depthUnitsText(header.setup.units));
    object.add("method", samplingText(header.setup.sampling));
    object.raw("interval", jsonNumber(header.setup.interval)); // as it was entered, not its binary tail
    object.add("direction", directionText(header.setup.direction));
    object.add("scans", static_cast<double>(facts.log.steps()));
    object.raw("depth_from", depthOr(true));
    object.raw("depth_to", depthOr(false));
    object.add("record_length", static_cast<double>(facts.info.shape.recordLength));
    object.add("skipped_scans", static_cast<double>(facts.log.skippedScans));
    object.add("damaged_records", static_cast<double>(facts.log.damagedScans));
    object.add("partial_bytes", static_cast<double>(facts.info.shape.partialBytes));
    object.raw("channels", channelsJson(facts.log));
    std::cout << object.text();
}

int runInfo(const Arguments& arguments) {
    const Path file = arguments.only("run or LAS file");
    Review review(arguments);
    auto log = review.open(file);
    if (!log) return exitFailed;
    if (log->las) {
        arguments.has("--json") ? printLasJson(file, *log) : printLasText(file, *log);
        return exitDone;
    }
    const RunFacts facts{file, readRunHeader(review.program().files, file), std::move(*log)};
    if (arguments.has("--json"))
        printJson(facts);
    else
        std::cout << runDetailsText(facts.log, file);
    return exitDone;
}

} // namespace

Verb infoVerb() {
    return {.name = "info",
            .usage = "info FILE [--json]",
            .purpose = "what a run file or a LAS file holds: header, channels, depth range, number of scans",
            .options = {{"--json", "", "as one JSON object"}, tolerantOption()},
            .run = runInfo};
}

} // namespace tarvik
