// What drawing a log needs of its channels more than once: filtered copies, and the ranges of long channels.
// Belongs to whoever draws one log; an entry is made anew when the values behind it are others.
#pragma once

#include "display/log_data.h"
#include "display/minmax_pyramid.h"

#include <map>
#include <optional>
#include <string>

namespace tarvik {

struct CurveSamples {
    std::span<const float> values;
    const MinMaxPyramid* pyramid = nullptr; ///< for long channels only
    std::size_t stride = 1;                 ///< steps from one value to the next, as a rule

    [[nodiscard]] ValueRange range(std::size_t first, std::size_t last) const {
        return pyramid != nullptr ? pyramid->range(values, first, last)
                                  : rangeOf(values.subspan(first, last - first));
    }
};

/// Of a channel sampled more coarsely than its log, as merged files have them: so many steps lie from one
/// value to the next, nine times of ten. 1 for any other: what is missing there is a gap.
[[nodiscard]] std::size_t usualStride(std::span<const float> values);

class LogCache {
  public:
    /// A filter setting that cannot be understood leaves the values as they are. Valid until the next call
    /// for the same channel and filter with other data.
    [[nodiscard]] CurveSamples samples(const LogData& data, const ChannelData& channel,
                                       const std::string& filter);
    void clear() { entries_.clear(); }

  private:
    struct Entry {
        const float* source = nullptr;
        std::size_t steps = 0;
        std::uint64_t revision = 0;
        std::vector<float> filtered;
        std::optional<MinMaxPyramid> pyramid;
        std::size_t stride = 1;
    };
    void renew(Entry& entry, const LogData& data, const ChannelData& channel, const std::string& filter);

    std::map<std::pair<std::string, std::string>, Entry> entries_; ///< by channel and filter
};

} // namespace tarvik
