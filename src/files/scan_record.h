// One scan record of a run file: a view that reads it where it lies, and the encoder.
#pragma once

#include "base/bytes.h"
#include "base/run_header.h"
#include "files/run_file_layout.h"

#include <span>

namespace tarvik {

/// A whole record in memory; the view must not outlive the bytes. Raw numbers, as the file has them.
class ScanView {
  public:
    ScanView(const std::uint8_t* record, std::size_t channels)
        : record_(record), trailer_(record + run_file::scan::trailer(channels)) {}

    [[nodiscard]] std::int32_t depth() const { return readI32le(record_ + run_file::scan::depth); }
    [[nodiscard]] std::int32_t time() const { return readI32le(record_ + run_file::scan::time); }
    [[nodiscard]] std::int32_t speed() const { return readI32le(record_ + run_file::scan::speed); }
    /// From 0.
    [[nodiscard]] std::int32_t value(std::size_t channel) const {
        return readI32le(record_ + run_file::scan::values + 4 * channel);
    }
    [[nodiscard]] std::int16_t current() const { return readI16le(trailer_ + run_file::scan::current); }
    [[nodiscard]] std::int16_t voltage() const { return readI16le(trailer_ + run_file::scan::voltage); }
    [[nodiscard]] std::int16_t marker() const { return readI16le(trailer_ + run_file::scan::marker); }

    [[nodiscard]] bool hasDepth() const { return depth() < run_file::scan::invalidDepth; }

  private:
    const std::uint8_t* record_;
    const std::uint8_t* trailer_;
};

/// Fills `record`, which is scanLength(number of values) bytes long. Depth goes in as thousandths of `units`,
/// speed and values as hundredths, all rounded halves to even. Throws Failure(overflow) when a value does not
/// fit its field; the record is spoilt then. The magnetic marker keeps its lower 16 bits.
void encodeScan(std::span<std::uint8_t> record, const KeptScan& scan, DepthUnits units);

} // namespace tarvik
