// The data bytes of one scan, numbered from 1 as the protocol numbers them. A byte that the scan does not
// have reads 0, so that a torn or foreign scan is never read out of bounds.
//
//   1-3 depth count, 4-5 time count, 6 … channel words, then the model's trailing bytes; high byte first
#pragma once

#include "base/rounding.h"
#include "lcu/lcu_models.h"

#include <cstdint>
#include <span>

namespace tarvik {

class ScanBytes {
  public:
    explicit ScanBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] int count() const { return static_cast<int>(bytes_.size()); }
    [[nodiscard]] int byte(int number) const {
        return number >= 1 && number <= count() ? bytes_[static_cast<std::size_t>(number - 1)] : 0;
    }
    [[nodiscard]] int word(int number) const { return byte(number) * 256 + byte(number + 1); }
    /// Counted back from the last byte, which is 0.
    [[nodiscard]] int byteFromEnd(int back) const { return byte(count() - back); }
    [[nodiscard]] int wordFromEnd(int back) const { return word(count() - back); }

    [[nodiscard]] std::int32_t depthCount() const { return byte(1) * 65536 + word(2); }
    [[nodiscard]] int timeCount() const { return word(4); }
    [[nodiscard]] int channelWord(int channel) const { return word(2 * channel + 4); }

    /// Channels that a scan of this length carries, whatever the tool says; an odd byte is rounded away,
    /// halves to even. Negative for a scan shorter than its fixed fields.
    [[nodiscard]] std::int16_t channels(const LcuModel& model) const {
        constexpr int leadingBytes = 5;
        return toInt16((count() - leadingBytes - model.trailingBytes) / 2.0);
    }

  private:
    std::span<const std::uint8_t> bytes_;
};

} // namespace tarvik
