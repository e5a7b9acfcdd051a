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
    data.joinLimit = toMetres(joinLimit(data.depth), data.units);
    data.channels.reserve(log.channels.size() + 3);
    for (const ReviewChannel& channel : log.channels) addChannel(data, channel);
    if (log.steps() > 0) {
        for (const ReviewChannel* channel : {&log.current, &log.voltage, &log.marker}) {
            addChannel(data, *channel);
        }
    }
    return data;
}

} // namespace tarvik
