#include "simulator/scan_encoder.h"

#include <algorithm>
#include <cmath>

namespace lcusim {

namespace {

class Writer {
  public:
    explicit Writer(std::span<std::uint8_t> out) : out_(out) {}

    void put(std::int64_t value, int bytes) {
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
            out_[size_++] = static_cast<std::uint8_t>((value >> shift) & 0xFF);
    }
    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    std::span<std::uint8_t> out_;
    std::size_t size_ = 1; ///< the length byte is written last
};

std::int64_t twelveBits(double level) {
    return static_cast<std::int64_t>(std::clamp(std::round(level), -2047.0, 2047.0)) & 0x0FFF;
}

} // namespace

std::size_t encodeScan(LcuModel model, const ScanContent& content,
                       std::span<std::uint8_t, mostScanBytes> out) {
    Writer writer(out);
    writer.put(content.depthCount, 3);
    writer.put(content.timeCount, 2);
    for (std::size_t i = 0; i < content.wordCount; ++i) writer.put(content.words[i], 2);
    writer.put(content.status, 1);
    if (model == LcuModel::lcu4) {
        writer.put(content.marker, 2);
        writer.put(twelveBits(content.volts / 0.0485), 2);
        writer.put(twelveBits(-content.currentMilliamperes / 0.55), 2);
    } else {
        writer.put(static_cast<std::int64_t>(std::clamp(std::round(content.currentMilliamperes), 0.0, 255.0)),
                   1);
    }
    out[0] = static_cast<std::uint8_t>(writer.size());
    return writer.size();
}

} // namespace lcusim
