// The plan view of a deviated hole: where the tool has gone, seen from above, north up, both axes at one
// scale. East and north are metres from the start of the run, whatever the unit of its depths.
#pragma once

#include "display/curve_scale.h"
#include "display/log_data.h"
#include "display/log_display.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tarvik {

struct PlanPoint {
    double east = 0;  ///< metres
    double north = 0; ///< metres
};

struct Bullseye {
    std::vector<PlanPoint> way; ///< in the order logged; steps that do not show are left out
    double ringStep = 1;        ///< metres between two rings
    int rings = 5;              ///< the outermost holds the whole way
    std::optional<PlanPoint> current;
    std::optional<float> azimuth;     ///< degrees, of the latest step
    std::optional<float> inclination; ///< degrees
    bool calibrated = true;           ///< of azimuth and inclination
    bool summed = true;               ///< a run by time sums no displacement; it has no way then

    [[nodiscard]] double reach() const { return ringStep * rings; }
};

/// From the channels East, North, Azimuth and Inclination; no way where the log has them not.
[[nodiscard]] Bullseye bullseyeOf(const LogData& data);

/// The three displays of the deviation tool, by the caption of their button.
constexpr std::string_view bullseyeCaption = "Bullseye";
constexpr std::string_view magneticsCaption = "Magnetics";
constexpr std::string_view deviationCaption = "Deviation";

/// The tracks that belong to the display "Magnetics" (magnetometers, total field, accelerometers) or
/// "Deviation" (angles and displacement); all tracks for any other caption.
[[nodiscard]] LogDisplay deviationDisplay(const LogDisplay& display, std::string_view caption);

} // namespace tarvik
