#include "display/log_data.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

void addChannel(LogData& data, const ReviewChannel& channel) {
    if (channel.values.size() != data.steps()) return;
    data.channels.push_back({channel.name, channel.unit, channel.calibrated, channel.values});
}

} // namespace

const ChannelData* LogData::find(std::string_view channel) const {
    const auto found = std::ranges::find(channels, channel, &ChannelData::name);
    return found == channels.end() ? nullptr : &*found;
}

Axis LogData::usualAxis() const {
    if (!sampledByTime || !has(Axis::time) || steps() < 2) return Axis::depth;
    const auto [least, most] = std::ranges::minmax_element(depth);
    return *least == *most ? Axis::time : Axis::depth;
}

LogData logDataOf(const ReviewLog& log) {
    LogData data;
    data.depth = log.depth;
    if (log.time.size() == log.depth.size()) data.time = log.time;
    data.units = log.header.setup.units;
    data.sampledByTime = !log.las && log.header.setup.sampling == Sampling::time;
    if (log.otherDepthUnit) data.otherUnit = *log.otherDepthUnit;
    data.joinLimit = usualJoinLimit(data.depth, data.units);
    data.channels.reserve(log.channels.size() + 3);
    for (const ReviewChannel& channel : log.channels) addChannel(data, channel);
    if (log.steps() > 0) {
        for (const ReviewChannel* channel : {&log.current, &log.voltage, &log.marker}) {
            addChannel(data, *channel);
        }
    }
    return data;
}

double usualJoinLimit(std::span<const double> depth, DepthUnits units) {
    if (depth.size() < 3) return 0;
    // A thousand steps spread over the log tell the usual one as well as all of them.
    std::vector<double> steps;
    const std::size_t stride = std::max<std::size_t>(1, depth.size() / 1000);
    for (std::size_t i = 1; i < depth.size(); i += stride) steps.push_back(std::abs(depth[i] - depth[i - 1]));
    const auto quantile = [&](std::size_t quarters) {
        const auto at = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) * quarters / 4);
        std::nth_element(steps.begin(), at, steps.end());
        return *at;
    };
    // Of a log in two samplings the coarser one is no row of gaps.
    return toMetres(std::max(quantile(2) * 10, quantile(3) * 3), units);
}

} // namespace tarvik
