// A scan of the wrong length, taken apart for the support desk: was the winch too fast, or is the line bad?
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

/// Depth and time at the start of some scan bytes, as the scan decoder reads them.
struct OverflowReading {
    double depth = 0;
    std::int32_t time = 0; ///< the raw count
};

struct BufferOverflow {
    int type = 2;     ///< 1: the length byte cannot be honoured; 2: more bytes waiting than the scan needs
    int expected = 0; ///< data bytes of the scan (length byte - 1)
    int received = 0;
    std::span<const std::uint8_t> bytes; ///< what was received; empty for type 1

    std::string samplingMethod; ///< "TIME" or "DEPTH"
    float interval = 0;
    double speed = 0; ///< per minute

    OverflowReading first;
    std::optional<OverflowReading> second; ///< of the bytes that follow the first scan
    bool secondSensible = false;           ///< the second depth lies within the near-range band

    /// A second scan and its length byte were received too.
    [[nodiscard]] bool holdsSecondScan() const { return second.has_value() && received >= 2 * expected + 1; }
};

/// The analysis as it stands in the error file, one text per line. Type 1 has no bytes and stops after the
/// first two lines.
[[nodiscard]] std::vector<std::string> overflowAnalysis(const BufferOverflow& overflow);

/// What the overflow form shows: its introduction, then the analysis.
[[nodiscard]] std::vector<std::string> overflowFormLines(const BufferOverflow& overflow);

} // namespace tarvik
