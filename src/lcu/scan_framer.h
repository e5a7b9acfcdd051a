// Where one scan ends in the stream of bytes: a length byte L, then L - 1 data bytes; no terminator, no
// checksum. Pure: it knows neither port nor clock.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tarvik {

enum class FrameVerdict : std::uint8_t {
    needMore,
    scan,      ///< complete; its data bytes may be none at all (L = 1)
    overflow1, ///< the length byte cannot be honoured: L = 0
    overflow2, ///< while waiting for a remainder: more bytes wait than the scan still needs
};

class ScanFramer {
  public:
    static constexpr int capacity = 1000;

    /// A new scan begins with its length byte.
    FrameVerdict begin(std::uint8_t length);

    /// One look at the line: `waiting` bytes are there and `nextByte()` supplies them (negative: it could
    /// not). Takes no more than the scan needs. The first look may find the scans that follow as well, a
    /// backlog; any later one is a wait for the remainder, and too many bytes are then an overflow. Those are
    /// taken too, as far as there is room, for the report.
    template <class NextByte>
    FrameVerdict look(int waiting, NextByte&& nextByte) {
        const bool tooMany = looked_ && waiting > missing();
        looked_ = true;
        const int wanted = std::min(waiting, tooMany ? capacity - received_ : missing());
        for (int i = 0; i < wanted; ++i) {
            const int byte = nextByte();
            if (byte < 0) break;
            buffer_[static_cast<std::size_t>(received_++)] = static_cast<std::uint8_t>(byte);
        }
        if (tooMany) return FrameVerdict::overflow2;
        return missing() == 0 ? FrameVerdict::scan : FrameVerdict::needMore;
    }

    /// Data bytes so far.
    [[nodiscard]] std::span<const std::uint8_t> bytes() const {
        return {buffer_.data(), static_cast<std::size_t>(received_)};
    }
    /// Data bytes of the scan in hand, L - 1: -1 after a length byte of 0.
    [[nodiscard]] int expected() const { return expected_; }
    [[nodiscard]] int missing() const { return std::max(expected_ - received_, 0); }

  private:
    std::array<std::uint8_t, capacity> buffer_{};
    int expected_ = 0;
    int received_ = 0;
    bool looked_ = false;
};

} // namespace tarvik
