// The decoded latest scan. One record, owned by the run (or by the console), written by the decoders for
// every scan and read by everything that shows or stores values.
#pragma once

#include "base/limits.h"

#include <array>
#include <cstdint>

namespace tarvik {

struct CurrentScan {
    float depth = 0;                ///< metres
    std::int32_t scanTime = 0;      ///< time count of this scan, 0.1 ms
    std::int32_t elapsedTime = 0;   ///< sum of the time counts since the start of the run, 0.1 ms
    std::int32_t status = 0;        ///< status byte of the LCU; -1 after a decoding failure
    float toolCurrent = 0;          ///< mA
    float toolVoltage = 0;          ///< V; 0 for an LCU2Plus
    std::int32_t auxiliaryWord = 0; ///< LCU4 only
    std::int16_t channelCount = 0;

    // Index 1 to 20 are the channels; index 0 is not used, so that a channel number is its index.
    std::array<float, maxChannels + 1> channels{};
    std::array<float, maxChannels + 1> calibrated{};

    /// Output of the raw decoder: depth count, time count, channel words, status and supply words.
    std::array<std::int32_t, maxChannels + 1> rawData{};
};

/// What a scan means for the run that is being logged; cleared at the start of every scan.
struct ScanFlags {
    bool inRange = false;    ///< within the logged interval
    bool nearRange = false;  ///< within a wide band around it
    bool advance = false;    ///< the scan is a sample: depth has advanced by a step, or time sampling is on
    bool endReached = false; ///< less than the entered distance is left
};

} // namespace tarvik
