#include "lcu/stream_hunt.h"

#include <algorithm>

namespace tarvik {

void StreamHunt::add(std::uint8_t byte) {
    if (count_ == bytes_.size()) {
        const std::size_t half = bytes_.size() / 2;
        std::copy(bytes_.begin() + half, bytes_.end(), bytes_.begin());
        count_ = half;
    }
    bytes_[count_++] = byte;
}

std::optional<StreamHunt::Place> StreamHunt::found() const {
    std::optional<Place> only;
    for (Place place{.length = shortestScan}; place.length <= longestScan; ++place.length) {
        for (place.begun = 0; place.begun < place.length; ++place.begun) {
            if (!fits(place)) continue;
            if (only) return std::nullopt;
            only = place;
        }
    }
    return only;
}

bool StreamHunt::fits(const Place& place) const {
    if (count_ < place.begun + wholeScans * place.length) return false;
    const std::size_t whole = std::min((count_ - place.begun) / place.length, scansLookedAt);
    const std::size_t last = count_ - place.begun; // where the scan that is not yet complete begins
    if (place.begun > 0 && bytes_[last] != place.length) return false;
    for (std::size_t back = 1; back <= whole; ++back) {
        if (bytes_[last - back * place.length] != place.length) return false;
    }
    return true;
}

} // namespace tarvik
