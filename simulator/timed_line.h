// One direction of the serial line: a queue of limited size that lets bytes through at the line rate, ten bit
// times each, and not before the time that the sender asked for.
#pragma once

#include "simulator/units.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lcusim {

struct LineByte {
    std::uint8_t value = 0;
    Micros notBefore = 0;
    bool withPrevious = false; ///< arrives together with the byte before, in one packet of a serial adapter
    bool lastOfScan = false;
    std::int64_t scan = 0; ///< number of the scan it belongs to, 0 for an answer
};

class TimedLine {
  public:
    explicit TimedLine(std::size_t capacity) : ring_(capacity) {}

    void setBaud(int baud) { nanosPerByte_ = 10'000'000'000 / baud; }
    [[nodiscard]] Micros timeOf(std::size_t bytes) const {
        return static_cast<Micros>(bytes) * nanosPerByte_ / 1000;
    }

    [[nodiscard]] std::size_t room() const { return ring_.size() - size_; }
    /// False, and the byte is gone, when the queue is full.
    bool push(const LineByte& byte);
    /// When the first byte has crossed the line; `never` when none waits.
    [[nodiscard]] Micros dueAt() const;
    /// The first byte; call it at `dueAt`.
    LineByte pop();
    void clear() { size_ = 0; }

    /// Number of the scan of which some but not all bytes have gone out; 0: none.
    [[nodiscard]] std::int64_t scanUnderWay() const { return scanUnderWay_; }
    /// Takes back what belongs to scans of which no byte has gone out yet.
    void withdrawScansNotBegun();

  private:
    [[nodiscard]] LineByte& at(std::size_t index) { return ring_[(head_ + index) % ring_.size()]; }
    [[nodiscard]] std::int64_t dueNanos() const;

    std::vector<LineByte> ring_;
    std::size_t head_ = 0;
    std::size_t size_ = 0;
    std::int64_t nanosPerByte_ = 1'041'666;
    std::int64_t freeAtNanos_ = 0;
    std::int64_t scanUnderWay_ = 0;
};

} // namespace lcusim
