// What the diagnostics console shows and saves, as texts.
#pragma once

#include "app/link_state.h"
#include "base/current_equipment.h"
#include "lcu/diagnostics_console.h"
#include "lcu/wire_transcript.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// A line of the status list without its codes.
struct StatusLineParts {
    std::string text; ///< "09:00:00  Diagnostics mode activated"
    bool bold = false;
    char colour = '0'; ///< '0' black, '1' blue, '2' red
};
[[nodiscard]] StatusLineParts statusLineParts(std::string_view viewerLine);

/// "LCU4 on COM1 at 9600 baud", or what to do without one.
[[nodiscard]] std::string lcuText(const LinkState& link);

/// What the status byte means: "Healthy LCU4", the errors it names, or that there is none yet.
[[nodiscard]] std::string statusMeaning(std::int32_t status);

/// "Clear to send: on" or "off"; empty when the port does not say.
[[nodiscard]] std::string clearToSendText(std::optional<bool> clearToSend);

/// A channel of the latest scan: its count, and its value under the current tool.
struct ChannelRow {
    int channel = 0;
    std::string name;
    std::string count;
    std::string value; ///< empty when the tool does not fit the scan; "not calibrated" without calibration
    std::string unit;
};
[[nodiscard]] std::vector<ChannelRow> channelRows(const CurrentTool& tool, const DiagnosticsScan& scan);

/// Why there are no engineering values, in one sentence; empty when there are.
[[nodiscard]] std::string whyNoValues(const CurrentTool& tool, const DiagnosticsScan& scan);

/// Status list, data log and raw bytes for a file: code page 1252, lines end in CR LF.
[[nodiscard]] std::string savedLists(const DiagnosticsConsole& console, const WireTranscript& transcript);

} // namespace tarvik
