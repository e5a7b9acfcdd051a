// tarvik info: what a run file holds.
#include "base/number_picture.h"
#include "cli/json.h"
#include "cli/terminal.h"

#include <iostream>

namespace tarvik {

namespace {

struct RunFacts {
    Path file;
    RunFileInfo info;
    ReviewLog log;
};

std::string depthText(double depth) {
    return formatPicture(depth, "###0.00");
}

std::string channelsJson(const RunFacts& facts) {
    std::string json = "[";
    for (const ReviewChannel& channel : facts.log.channels) {
        json += std::string(json.size() > 1 ? ", " : "") + "{\"name\": " + jsonString(channel.name) +
                ", \"unit\": " + jsonString(channel.unit) + "}";
    }
    return json + "]";
}

void printJson(const RunFacts& facts) {
    const RunHeader& header = facts.info.header;
    const auto depthOr = [&](bool first) -> std::string {
        if (facts.log.steps() == 0) return "null";
        return jsonNumber(first ? facts.log.depth.front() : facts.log.depth.back());
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
    object.add("partial_bytes", static_cast<double>(facts.info.shape.partialBytes));
    object.raw("channels", channelsJson(facts));
    std::cout << object.text();
}

void printText(const RunFacts& facts) {
    const RunHeader& header = facts.info.header;
    const std::string_view units = depthUnitsText(header.setup.units);
    std::cout << "File       " << facts.file.string() << "\n"
              << "Hole       " << header.hole.holeId << "  (project " << header.project << ")\n"
              << "Tool       " << header.tool.code << "  " << header.tool.name << "  SN-"
              << header.tool.serialNumber << "\n"
              << "Winch      " << header.winch.name << "\n"
              << "Run        " << header.runDate << " " << header.startTime << ", "
              << samplingText(header.setup.sampling) << " sampling every "
              << shortestNumber(header.setup.interval)
              << (header.setup.sampling == Sampling::depth ? " cm, " : " s, ")
              << directionText(header.setup.direction) << "\n"
              << "Scans      " << facts.log.steps();
    if (facts.log.steps() > 0) {
        std::cout << ", depth " << depthText(facts.log.depth.front()) << " to "
                  << depthText(facts.log.depth.back()) << " " << units;
    }
    std::cout << "\n";
    if (facts.log.skippedScans > 0)
        std::cout << "Skipped    " << facts.log.skippedScans << " without a depth\n";
    if (facts.info.shape.partialBytes > 0) {
        std::cout << "Torn       " << facts.info.shape.partialBytes << " bytes of a last record, not read\n";
    }
    for (const ReviewChannel& channel : facts.log.channels) {
        std::cout << "Channel    " << channel.name << "  " << channel.unit
                  << (channel.calibrated ? "" : "  (not calibrated: counts)") << "\n";
    }
}

int runInfo(const Arguments& arguments) {
    const Path file = arguments.only("run file");
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    auto log = program.runReader.Tarvikfileopen(file);
    if (!log) return exitFailed;
    const RunFacts facts{file, readRunHeader(program.files, file), std::move(*log)};
    if (arguments.has("--json"))
        printJson(facts);
    else
        printText(facts);
    return exitDone;
}

} // namespace

Verb infoVerb() {
    return {.name = "info",
            .usage = "info RUN.kvx [--json]",
            .purpose = "what a run file holds: header, channels, depth range, number of scans",
            .options = {{"--json", "", "as one JSON object"}},
            .run = runInfo};
}

} // namespace tarvik
