// Finds where scans begin in a stream that never pauses: a scan is a length byte L and L - 1 bytes more, and
// the scans of a stream are all of one length, so that L comes back every L bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tarvik {

class StreamHunt {
  public:
    static constexpr std::size_t shortestScan = 8;  ///< length byte, depth, time, status and current
    static constexpr std::size_t longestScan = 53;  ///< 20 channels of an LCU4
    static constexpr std::size_t wholeScans = 3;    ///< that must have come, at least
    static constexpr std::size_t scansLookedAt = 8; ///< the latest; each of them must fit

    struct Place {
        std::size_t length = 0; ///< of every scan, its length byte included
        std::size_t begun = 0;  ///< latest bytes that belong to a scan not yet complete
    };

    void clear() { count_ = 0; }
    /// When full the older half is forgotten.
    void add(std::uint8_t byte);
    /// Nothing while too little has come, or when more than one reading is possible.
    [[nodiscard]] std::optional<Place> found() const;
    /// The latest `count` bytes; valid until the next `add`.
    [[nodiscard]] std::span<const std::uint8_t> latest(std::size_t count) const {
        return std::span(bytes_).subspan(count_ - count, count);
    }

  private:
    [[nodiscard]] bool fits(const Place& place) const;

    std::array<std::uint8_t, 512> bytes_{};
    std::size_t count_ = 0;
};

} // namespace tarvik
