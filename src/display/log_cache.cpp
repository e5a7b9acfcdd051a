#include "display/log_cache.h"

#include "base/failure.h"
#include "processing/log_filter.h"

namespace tarvik {

namespace {

constexpr std::size_t longChannel = 4096; // shorter ones are looked through quicker than a pyramid is built

bool smooths(const std::string& filter) {
    try {
        return filterLength(filter).value_or(1) > 1;
    } catch (const Failure&) {
        return false;
    }
}

} // namespace

void LogCache::renew(Entry& entry, const LogData& data, const ChannelData& channel,
                     const std::string& filter) {
    entry.source = channel.values.data();
    entry.steps = channel.values.size();
    entry.revision = data.revision;
    entry.filtered.clear();
    entry.pyramid.reset();
    if (smooths(filter)) {
        entry.filtered.assign(channel.values.begin(), channel.values.end());
        Logprintexport_filterlogdata(entry.filtered, filter);
    }
    const std::span<const float> values = entry.filtered.empty() ? channel.values : entry.filtered;
    if (values.size() >= longChannel) entry.pyramid.emplace(values);
}

CurveSamples LogCache::samples(const LogData& data, const ChannelData& channel, const std::string& filter) {
    Entry& entry = entries_[{std::string(channel.name), filter}];
    if (entry.source != channel.values.data() || entry.steps != channel.values.size() ||
        entry.revision != data.revision) {
        renew(entry, data, channel, filter);
    }
    return {entry.filtered.empty() ? channel.values : std::span<const float>(entry.filtered),
            entry.pyramid ? &*entry.pyramid : nullptr};
}

} // namespace tarvik
