// The gauges of the fluid samplers: pressures and temperatures on dials, the piston as a filled chamber.
#pragma once

#include "display/log_data.h"
#include "display/log_display.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

enum class GaugeKind { dial, chamber };

struct Gauge {
    std::string name;
    std::string unit;
    GaugeKind kind = GaugeKind::dial;
    CurveScale scale;
    bool calibrated = true;
    std::optional<double> value; ///< nothing: no scan yet, or a gap

    /// Between 0 and 1; a value beyond the scale stands at its end and is said in figures.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] bool offScale() const;
};

[[nodiscard]] bool hasGauges(std::string_view toolCode); ///< K306 and K307

/// One for each curve of the display, in its order, with the latest value of its channel.
[[nodiscard]] std::vector<Gauge> gaugesOf(const LogDisplay& display, const LogData& data);

[[nodiscard]] std::string gaugeText(const Gauge& gauge);

} // namespace tarvik
