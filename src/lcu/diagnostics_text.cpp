#include "lcu/diagnostics_text.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "lcu/lcu_models.h"
#include "lcu/lcu_port.h"

#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t codesLength = 4; // "\b\0"

constexpr std::array<std::pair<int, std::string_view>, 4> errorBits{
    {{1, "has not got block"}, {2, "receiver has timed out"}, {3, "checksum error"}, {6, "command error"}}};

} // namespace

StatusLineParts statusLineParts(std::string_view viewerLine) {
    const std::size_t codes = viewerLine.find('\\');
    if (codes == std::string_view::npos || viewerLine.size() < codes + codesLength)
        return {std::string(viewerLine), false, '0'};
    return {.text = std::string(viewerLine.substr(0, codes)).append(viewerLine.substr(codes + codesLength)),
            .bold = viewerLine[codes + 1] == 'B',
            .colour = viewerLine[codes + 3]};
}

std::string lcuText(const LinkState& link) {
    if (link.demo) return "Demonstration: no LCU is connected";
    if (!link.open()) return "No port is open - find the LCU first";
    return (link.model.empty() ? "No LCU" : link.model) + " on " + comName(link.port) + " at " +
           std::to_string(link.baud) + " baud";
}

std::string statusMeaning(std::int32_t status) {
    if (status < 1) return "No status received";
    const std::string value = std::to_string(status);
    if (const LcuModel* model = modelWithStatus(status))
        return value + " - healthy " + std::string(model->name);
    std::string errors;
    for (const auto& [bit, meaning] : errorBits) {
        if ((status >> bit & 1) != 0) errors.append(errors.empty() ? " - " : ", ").append(meaning);
    }
    return value + (errors.empty() ? " - not a healthy LCU" : errors);
}

std::string clearToSendText(std::optional<bool> clearToSend) {
    if (!clearToSend) return {};
    return *clearToSend ? "Clear to send: on" : "Clear to send: off";
}

std::vector<ChannelRow> channelRows(const CurrentTool& tool, const DiagnosticsScan& scan) {
    std::vector<ChannelRow> rows;
    for (int channel = 1; channel <= scan.channels; ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        ChannelRow row;
        row.channel = channel;
        row.count = std::to_string(scan.counts[index]);
        if (scan.toolFits) {
            row.name = tool.record.get(tool::channelName(tool.mode, channel));
            row.unit = tool.record.get(tool::channelUnit(tool.mode, channel));
            row.value = tool.calibration(channel).state == "None" ? "not calibrated"
                                                                  : shortestNumber(scan.calibrated[index]);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::string whyNoValues(const CurrentTool& tool, const DiagnosticsScan& scan) {
    if (scan.toolFits) return {};
    const std::string code = tool.record.get(tool::code);
    if (code.empty()) return "No tool is selected: counts only.";
    return "The scan carries " + std::to_string(scan.channels) + " channels, the tool " + code + " has " +
           std::to_string(tool.channels()) + ": counts only.";
}

std::string savedLists(const DiagnosticsConsole& console, const WireTranscript& transcript) {
    std::string text = "Status list";
    text.append(lineEnd).append(lineEnd);
    for (const std::string& line : console.statusList())
        text.append(statusLineParts(line).text).append(lineEnd);
    text.append(lineEnd).append("Data log").append(lineEnd).append(lineEnd).append(console.dataLog().text());
    if (!transcript.lines().empty()) {
        text.append(lineEnd).append("Raw bytes").append(lineEnd).append(lineEnd);
        for (const std::string& line : transcript.lines()) text.append(line).append(lineEnd);
    }
    return toAnsi(text);
}

} // namespace tarvik
