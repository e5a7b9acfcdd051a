// The measured data that a display draws: views of arrays that somebody else owns and keeps while they are
// drawn. The review arrays of a run or a LAS file, or the latest points of a run that is being logged.
#pragma once

#include "base/depth_units.h"
#include "base/review_log.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarvik {

enum class Axis { depth, time };

struct ChannelData {
    std::string_view name;
    std::string_view unit;
    bool calibrated = true;
    std::span<const float> values; ///< as many as the log has steps; a gap where isNoValue()
};

struct LogData {
    std::span<const double> depth; ///< in `units`
    std::span<const double> time;  ///< seconds; may be empty
    std::vector<ChannelData> channels;
    DepthUnits units = DepthUnits::metres;
    std::string_view otherUnit; ///< of an index that is neither; each counts as a metre. Mostly empty
    std::size_t firstStep = 0;  ///< number of the first step, when older ones have left the arrays
    std::uint64_t revision = 0; ///< another number when values have changed in place
    bool sampledByTime = false;
    double joinLimit = 0; ///< metres; steps further apart are not joined by a line. 0: no limit

    [[nodiscard]] std::size_t steps() const { return depth.size(); }
    [[nodiscard]] std::span<const double> along(Axis axis) const {
        return axis == Axis::depth ? depth : time;
    }
    /// What a number of along(axis) is in metres or seconds.
    [[nodiscard]] double unitOf(Axis axis) const { return axis == Axis::depth ? toMetres(1, units) : 1; }
    /// By time where it was sampled so and the tool stood still: by depth there is nothing to see.
    [[nodiscard]] Axis usualAxis() const;
    [[nodiscard]] bool has(Axis axis) const { return along(axis).size() == steps(); }
    /// Nothing (null) when the log has no such channel.
    [[nodiscard]] const ChannelData* find(std::string_view channel) const;
};

/// The recorded channels, then tool current, voltage and magnetic marker where the log has them.
[[nodiscard]] LogData logDataOf(const ReviewLog& log);

} // namespace tarvik
