#include "display/log_cache.h"

#include "base/failure.h"
#include "processing/log_filter.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::size_t longChannel = 4096; // shorter ones are looked through quicker than a pyramid is built

constexpr std::size_t coarsest = 50; // steps; a value in half a metre among those of a centimetre
constexpr std::size_t fewest = 4;    // intervals that make a rule

bool smooths(const std::string& filter) {
    try {
        return filterLength(filter).value_or(1) > 1;
    } catch (const Failure&) {
        return false;
    }
}

} // namespace

std::size_t usualStride(std::span<const float> values) {
    std::vector<std::size_t> counts(coarsest + 1); // how often the next value is so many steps away
    std::size_t all = 0;
    std::size_t before = values.size();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (isNoValue(values[i])) continue;
        if (before < i) {
            ++all;
            if (i - before <= coarsest) ++counts[i - before];
        }
        before = i;
    }
    const auto most = std::ranges::max_element(counts);
    const bool rule = all >= fewest && *most * 10 >= all * 9;
    return rule ? static_cast<std::size_t>(most - counts.begin()) : 1;
}

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
    entry.stride = usualStride(values);
    if (values.size() >= longChannel) entry.pyramid.emplace(values);
}

CurveSamples LogCache::samples(const LogData& data, const ChannelData& channel, const std::string& filter) {
    Entry& entry = entries_[{std::string(channel.name), filter}];
    if (entry.source != channel.values.data() || entry.steps != channel.values.size() ||
        entry.revision != data.revision) {
        renew(entry, data, channel, filter);
    }
    return {entry.filtered.empty() ? channel.values : std::span<const float>(entry.filtered),
            entry.pyramid ? &*entry.pyramid : nullptr, entry.stride};
}

} // namespace tarvik
