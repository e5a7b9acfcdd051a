// One scan as the diagnostics console shows it: raw counts of every channel that the scan carries, and beside
// them the values of the current tool's channels.
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "base/current_equipment.h"
#include "base/limits.h"
#include "base/run_setup.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tarvik {

struct DiagnosticsScan {
    double depth = 0;      ///< metres
    std::int32_t time = 0; ///< time count, 0.1 ms
    int channels = 0;      ///< that the scan carries, 0 to 20
    std::int32_t status = -1;
    double current = 0; ///< mA
    double voltage = 0; ///< V; 0 for an LCU2Plus

    /// Index 1 to 20. Signed where the current tool's words are.
    std::array<std::int32_t, maxChannels + 1> counts{};
    /// After the calibration polynomial; only with `toolFits`.
    std::array<float, maxChannels + 1> calibrated{};
    /// The scan carries as many channels as the current tool has.
    bool toolFits = false;
};

/// What decoding needs to know besides the bytes.
struct DiagnosticsDecoding {
    ErrorTrap& errors;
    StatusLog& log;
    const CurrentTool& tool;
    std::string_view model; ///< "LCU2Plus" or "LCU4"
    double winchScaleFactor = 1.0;
};

/// False when the bytes (without the length byte) are no scan of the model.
[[nodiscard]] bool Diag_Getvalues(const DiagnosticsDecoding& decoding, std::span<const std::uint8_t> bytes,
                                  DiagnosticsScan& scan);

} // namespace tarvik
