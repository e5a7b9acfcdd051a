// A finished run in memory: the review arrays, whatever file they came from.
#pragma once

#include "base/las_facts.h"
#include "base/limits.h"
#include "base/run_header.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
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
    std::optional<int> filteredOver{}; ///< points of the filter that a LAS file says its values went through
};

/// Least and greatest depth: a log may go back on itself.
struct DepthExtent {
    double from = 0;
    double to = 0;
};

struct ReviewLog {
    RunHeader header;
    std::vector<double> depth; ///< in `header.setup.units`; increasing but for a tool that went back
    /// The index of a LAS file may count something else than metres or feet; its unit, which may be blank,
    /// then stands here, and `header.setup.units` means nothing.
    std::optional<std::string> otherDepthUnit;
    std::vector<ReviewChannel> channels; ///< the recorded channels, "Speed" first for a run file
    std::optional<LasFacts> las;         ///< of a LAS file
    // Derived from the scans of a run file, empty for a LAS file; they come besides the 20 recorded channels.
    std::vector<double> time; ///< seconds since the first scan
    ReviewChannel current{"Current", "mA", true, {}};
    ReviewChannel voltage{"Voltage", "Volts", true, {}};
    ReviewChannel marker{"Magnetic Marker", "Value", true, {}};

    std::size_t skippedScans = 0; ///< marked as having no valid depth
    std::size_t damagedScans = 0; ///< records that are no scans
    std::size_t partialBytes = 0; ///< of a torn last record, not read
    bool reversed = false;        ///< the run went up; the arrays were turned round
    bool truncated = false;       ///< more steps than the arrays hold

    [[nodiscard]] std::size_t steps() const { return depth.size(); }
    /// Both 0 without steps.
    [[nodiscard]] DepthExtent extent() const {
        if (depth.empty()) return {};
        const auto [least, most] = std::ranges::minmax(depth);
        return {least, most};
    }
    /// The step that was logged as the i-th: an up-log was turned round, its last scan stands first.
    [[nodiscard]] std::size_t asLogged(std::size_t i) const { return reversed ? steps() - 1 - i : i; }
    /// "Metres", "Feet" or the index's own unit.
    [[nodiscard]] std::string_view depthUnit() const {
        return otherDepthUnit ? std::string_view(*otherDepthUnit) : depthUnitsText(header.setup.units);
    }
};

/// Ten times the usual step: what is further apart was not logged in between, and a straight line there would
/// look like rock. 0, no limit, for fewer than three depths.
[[nodiscard]] double joinLimit(std::span<const double> depth);

} // namespace tarvik
