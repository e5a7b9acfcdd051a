// A finished run in memory: the review arrays, whatever file they came from.
#pragma once

#include "base/limits.h"
#include "base/run_header.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik {

/// A value that is not there: a gap in a curve.
[[nodiscard]] float noValue();
[[nodiscard]] bool isNoValue(float value);

struct ReviewChannel {
    std::string name;
    std::string unit;
    bool calibrated = true; ///< false: the values are counts; say so wherever they are shown or exported
    std::vector<float> values;
};

struct ReviewLog {
    RunHeader header;
    std::vector<double> depth;           ///< in `header.setup.units`, increasing
    std::vector<ReviewChannel> channels; ///< the recorded channels, "Speed" first for a run file
    // Derived from the scans of a run file; they come besides the 20 recorded channels.
    std::vector<double> time; ///< seconds since the first scan
    ReviewChannel current{"Current", "mA", true, {}};
    ReviewChannel voltage{"Voltage", "Volts", true, {}};
    ReviewChannel marker{"Magnetic Marker", "Value", true, {}};

    std::size_t skippedScans = 0; ///< marked as having no valid depth
    std::size_t partialBytes = 0; ///< of a torn last record, not read
    bool reversed = false;        ///< the run went up; the arrays were turned round
    bool truncated = false;       ///< more steps than the arrays hold

    [[nodiscard]] std::size_t steps() const { return depth.size(); }
};

} // namespace tarvik
