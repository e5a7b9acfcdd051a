// One scan record of a run file: a view that reads it where it lies, and the encoder.
#pragma once

#include "base/bytes.h"
#include "base/run_header.h"
#include "files/run_file_layout.h"

#include <cstring>
#include <span>
#include <string_view>

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
    /// The ten blanks that end every record are there.
    [[nodiscard]] bool isClosed() const {
        constexpr std::string_view blanks = "          ";
        return std::memcmp(trailer_ + run_file::scan::blanks, blanks.data(), blanks.size()) == 0;
    }

  private:
    const std::uint8_t* record_;
    const std::uint8_t* trailer_;
};

/// Tells the records of a file that are scans. Where the first one ends with its blanks, one without them is
/// none: zeros that a power cut left, or bytes out of step after a loss. Some writers leave the blanks out
/// altogether; their files are taken as they stand.
class ScanMarks {
  public:
    [[nodiscard]] bool isScan(ScanView scan) {
        const bool closed = scan.isClosed();
        if (first_) firstIsClosed_ = closed;
        first_ = false;
        return closed || !firstIsClosed_;
    }

  private:
    bool first_ = true;
    bool firstIsClosed_ = false;
};

/// Fills `record`, which is scanLength(number of values) bytes long. Depth goes in as thousandths of `units`,
/// speed and values as hundredths, all rounded halves to even. Throws Failure(overflow) when a value does not
/// fit its field; the record is spoilt then. The magnetic marker keeps its lower 16 bits.
void encodeScan(std::span<std::uint8_t> record, const KeptScan& scan, DepthUnits units);

} // namespace tarvik
