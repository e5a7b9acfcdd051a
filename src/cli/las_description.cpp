#include "cli/las_description.h"

#include "base/number_picture.h"
#include "cli/json.h"

#include <cmath>
#include <iostream>

namespace tarvik {

namespace {

std::string channelsJson(const ReviewLog& log) {
    return jsonArray(log.channels, [](const ReviewChannel& channel) {
        JsonObject members;
        members.add("name", channel.name);
        members.add("unit", channel.unit);
        members.raw("calibration", "null");
        return members.inLine();
    });
}

/// A header can lack its numbers.
std::string headerNumber(double number) {
    return std::isfinite(number) ? shortestNumber(number) : "-";
}

std::string depthText(double depth) {
    return formatPicture(depth, "###0.00");
}

} // namespace

void printLasJson(const Path& file, const ReviewLog& log) {
    const LasFacts& facts = *log.las;
    JsonObject object;
    object.add("file", file.string());
    object.add("kind", "las");
    object.raw("format_version",
               std::isfinite(facts.version) ? formatPicture(facts.version, "0.00") : "null");
    for (const char* const unknown : {"tool", "tool_name", "serial", "winch", "project"})
        object.raw(unknown, "null");
    object.add("hole", log.header.hole.holeId);
    object.add("date", log.header.runDate);
    object.add("units", log.depthUnit());
    object.raw("method", "null");
    object.add("interval", facts.step);
    object.raw("direction", "null");
    object.add("scans", static_cast<double>(log.steps()));
    object.raw("depth_from", log.steps() == 0 ? "null" : jsonNumber(log.extent().from));
    object.raw("depth_to", log.steps() == 0 ? "null" : jsonNumber(log.extent().to));
    object.raw("record_length", "null");
    object.add("skipped_scans", static_cast<double>(facts.droppedRows));
    object.add("partial_bytes", static_cast<double>(facts.fragmentBytes));
    object.raw("channels", channelsJson(log));
    object.raw("findings",
               jsonArray(facts.findings, [](const std::string& finding) { return jsonString(finding); }));
    std::cout << object.text();
}

void printLasText(const Path& file, const ReviewLog& log) {
    const LasFacts& facts = *log.las;
    std::cout << "File       " << file.string() << "\n"
              << "LAS        " << (std::isfinite(facts.version) ? formatPicture(facts.version, "0.0#") : "-")
              << "\n"
              << "Hole       " << log.header.hole.holeId << "  (company " << log.header.hole.company << ")\n"
              << "Run        " << log.header.runDate << "\n"
              << "Header     " << headerNumber(facts.start) << " to " << headerNumber(facts.stop) << " by "
              << facts.stepText << " " << facts.depthUnit
              << ", no value: " << (facts.hasNull ? facts.nullText : "none") << "\n"
              << "Steps      " << log.steps();
    if (log.steps() > 0) {
        std::cout << ", depth " << depthText(log.extent().from) << " to " << depthText(log.extent().to) << " "
                  << log.depthUnit();
    }
    std::cout << "\n";
    if (facts.droppedRows > 0) std::cout << "Dropped    " << facts.droppedRows << " rows\n";
    if (facts.fragmentBytes > 0)
        std::cout << "Torn       " << facts.fragmentBytes << " bytes of a last row, not read\n";
    std::cout << "Curves     " << facts.curvesInFile << " with the index, loaded are " << log.channels.size()
              << " channels; the file does not say whether they are calibrated\n";
    for (const ReviewChannel& channel : log.channels)
        std::cout << "Channel    " << channel.name << "  " << channel.unit << "\n";
}

} // namespace tarvik
