// From the bytes of a scan to plain integers, unscaled, for calibration, test and threshold work.
//
// Its rules of sign differ from the value decoder's on purpose (scan_decoder.h): stored raw counts must go on
// meaning what they meant when they were calibrated.
#pragma once

#include "app/error_trap.h"
#include "base/current_scan.h"
#include "lcu/scan_setup.h"

#include <cstdint>
#include <span>

namespace tarvik {

class RawScanDecoder {
  public:
    RawScanDecoder(ErrorTrap& errors, const ScanSetup& setup) : errors_(errors), setup_(setup) {}

    /// Fills `rawData` and the channel count: 0 depth count, 1 time count, from 2 on the channel words, then
    /// status and supply words. Entries past index 20 are dropped. Returns the index one past the last entry,
    /// as computed; 0 for an empty scan, which changes nothing.
    std::int16_t LCU_GetRawDataScan(std::span<const std::uint8_t> scan, CurrentScan& current);

  private:
    std::int16_t decode(std::span<const std::uint8_t> scan, CurrentScan& current) const;

    ErrorTrap& errors_;
    const ScanSetup& setup_;
};

} // namespace tarvik
