// The tool and the winch chosen for the run.
#pragma once

#include "base/calibration.h"
#include "base/limits.h"
#include "base/tool_record.h"
#include "base/winch_record.h"

#include <array>
#include <cstdint>

namespace tarvik {

/// How a channel's counts become a value: 0 no channel, 1 count rate, 2 period, 3 signed 12-bit level, 4 and
/// 5 plain level. The factor is the period constant of kind 2.
struct SensorFactor {
    std::int16_t kind = 0;
    float factor = 0;

    friend bool operator==(const SensorFactor&, const SensorFactor&) = default;
};

struct CurrentTool {
    ToolRecord record = blankTool();
    int mode = 1; ///< 1 or 2
    /// Of the current mode; index 1 to 20, index 0 is not used.
    std::array<SensorFactor, maxChannels + 1> factors{};
    /// Both modes; [mode - 1][channel], channel 1 to 20.
    std::array<std::array<Calibration, maxChannels + 1>, 2> calibrations{};

    [[nodiscard]] int channels() const { return tool::channels(record, mode); }
    [[nodiscard]] const Calibration& calibration(int channel) const {
        return calibrations[static_cast<std::size_t>(mode - 1)][static_cast<std::size_t>(channel)];
    }
};

struct CurrentWinch {
    WinchRecord record = blankWinch();
};

} // namespace tarvik
