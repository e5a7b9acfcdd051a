#include "lcu/diagnostics_scan.h"

#include "lcu/scan_decoder.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr int leadingBytes = 5;
constexpr std::int32_t firstScanWithValues = 3; // a run's first two carry none; the console shows them all

bool isScanOf(const LcuModel& model, std::size_t bytes) {
    const int channelBytes = static_cast<int>(bytes) - leadingBytes - model.trailingBytes;
    return channelBytes >= 0 && channelBytes % 2 == 0 && channelBytes / 2 <= maxChannels;
}

void takeCounts(const ScanBytes& bytes, const CurrentTool& tool, DiagnosticsScan& scan) {
    const ToolRule& rule = toolRule(tool.record.get(tool::code));
    scan.counts = {};
    for (int channel = 1; channel <= scan.channels; ++channel) {
        const int word = bytes.channelWord(channel);
        const bool negative = word > 32767 && channel >= rule.signedFrom;
        scan.counts[static_cast<std::size_t>(channel)] = negative ? word - 65536 : word;
    }
}

} // namespace

bool Diag_Getvalues(const DiagnosticsDecoding& decoding, std::span<const std::uint8_t> bytes,
                    DiagnosticsScan& scan) {
    const LcuModel* model = modelNamed(decoding.model);
    if (model == nullptr || !isScanOf(*model, bytes.size())) return false;
    RunSetup run;
    run.winchDepthFactor = decoding.winchScaleFactor * model->modelFactor;
    const ScanSetup setup = prepareScans(decoding.tool, model, run);
    ScanState state;
    state.scans = firstScanWithValues;
    ScanDecoder(decoding.errors, decoding.log, setup, state).LCU_GetValues(bytes);

    const ScanBytes numbered(bytes);
    scan.channels = numbered.channels(*model);
    takeCounts(numbered, decoding.tool, scan);
    scan.depth = static_cast<double>(state.current.depth);
    scan.time = state.current.scanTime;
    scan.status = state.current.status;
    scan.current = static_cast<double>(state.current.toolCurrent);
    scan.voltage = static_cast<double>(state.current.toolVoltage);
    scan.calibrated = state.current.calibrated;
    scan.toolFits = setup.channels > 0 && setup.channels == scan.channels;
    return true;
}

} // namespace tarvik
