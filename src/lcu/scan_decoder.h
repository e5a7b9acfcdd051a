// From the bytes of a scan to depth, time, supply readings and calibrated channel values. Allocates nothing;
// reads no byte beyond the scan, however few there are (missing bytes read 0).
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "base/current_scan.h"
#include "lcu/scan_bytes.h"
#include "lcu/scan_setup.h"
#include "lcu/tool_rules.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace tarvik {

/// Last-sampled depth while no depth has been sampled yet.
constexpr float noDepthSampled = -9999.0F;

/// What decoding leaves behind and carries from scan to scan. Owned by the run; a fresh one starts a run.
struct ScanState {
    CurrentScan current;
    ScanFlags flags;
    /// Complete scans of the run, empty ones included. Whoever receives a scan raises it before decoding.
    std::int32_t scans = 0;
    float lastSampledDepth = noDepthSampled; ///< metres
    /// Channels that the scan itself carried (its k); the current scan's count also has the derived ones.
    std::int16_t carriedChannels = 0;
};

/// Channel values that are computed from the others of the same scan.
class DerivedValues {
  public:
    virtual ~DerivedValues() = default;
    /// Called for every scan of the deviation tool with a scan time, between the conversion of the measured
    /// channels and the calibration of the derived ones. Fills channels 7 to 12.
    virtual void derive(CurrentScan& scan) = 0;
};

/// Depth of a scan in metres, without offsets.
[[nodiscard]] float scanDepth(const ScanBytes& scan, const RunSetup& run);
/// Within 100 m above the logged interval and 1000 m below it: a depth that a tool could really be at.
[[nodiscard]] bool isNearRange(double depth, const RunSetup& run);

class ScanDecoder {
  public:
    /// All outlive the decoder. `deviation` computes channels 7 to 12 of the deviation tool; without it they
    /// read 0.
    ScanDecoder(ErrorTrap& errors, StatusLog& log, const ScanSetup& setup, ScanState& state,
                DerivedValues* deviation = nullptr)
        : errors_(errors),
          log_(log),
          setup_(setup),
          rule_(toolRule(setup.toolCode)),
          state_(state),
          deviation_(deviation) {}

    /// Decodes the data bytes of one scan into the state. An empty scan leaves LCU status -1 and a line in
    /// the status log. The first two scans of a run only clear the flags and the channel values.
    void LCU_GetValues(std::span<const std::uint8_t> scan);

    /// Calibrated value of a channel (1 to 20) from its channel value.
    void ConvertToCalibData(std::int16_t channel);

  private:
    void decodeEmpty();
    void decodeTrailer(const ScanBytes& scan);
    void judgeDepth();
    [[nodiscard]] bool advances() const;
    [[nodiscard]] double distanceLeft() const;
    void decodeTime(const ScanBytes& scan);
    void decodeChannels(const ScanBytes& scan);
    void convertChannel(std::size_t channel, int counts);
    void deriveChannels();
    void calibrate(std::size_t channel);

    ErrorTrap& errors_;
    StatusLog& log_;
    const ScanSetup& setup_;
    const ToolRule& rule_;
    ScanState& state_;
    DerivedValues* deviation_;
};

} // namespace tarvik
