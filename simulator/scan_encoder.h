// A scan as it goes over the line: a length byte L, then L - 1 data bytes, high bytes first.
//
//   length, depth count (24 bit, two's complement), time count (16), k words (16 each), then
//   LCU2Plus: status, tool current in mA (8)
//   LCU4:     status, cable marker A (16), supply voltage B (12, signed), tool current C (12, signed)
//
// B counts 0.0485 V, C counts 0.55 mA. C is measured in the return wire and therefore negative.
#pragma once

#include "simulator/options.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace lcusim {

constexpr std::size_t mostWords = 40;
constexpr std::size_t mostScanBytes = 1 + 5 + 2 * mostWords + 7;

struct ScanContent {
    std::int32_t depthCount = 0;
    std::uint16_t timeCount = 0; ///< tenths of a millisecond since the scan before
    std::size_t wordCount = 0;
    std::array<std::uint16_t, mostWords> words{};
    std::uint8_t status = 0;
    double currentMilliamperes = 0;
    double volts = 0;
    std::uint16_t marker = 0;
};

/// Writes the scan and returns how many bytes it took, the length byte included.
[[nodiscard]] std::size_t encodeScan(LcuModel model, const ScanContent& content,
                                     std::span<std::uint8_t, mostScanBytes> out);

} // namespace lcusim
