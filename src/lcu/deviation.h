// Where the hole goes: total magnetic field, inclination, azimuth and the way east and north, from the three
// magnetometers and the three accelerometers of the deviation tool.
//
// Channels 1 to 3 are the magnetometers x, y, z (counts of 0.0001 unit), 4 to 6 the accelerometers (0.0001
// g); x lies along the hole. Angles come out in units of 0.0001 degree, not rounded: azimuth clockwise from
// north, inclination from the horizontal (0) to straight down (-900000). Way east and north in metres of
// cable.
#pragma once

#include "base/current_scan.h"
#include "base/run_setup.h"
#include "lcu/scan_decoder.h"

namespace tarvik {

[[nodiscard]] float CalcTotalMag(const CurrentScan& scan);
[[nodiscard]] float CalcInclination(const CurrentScan& scan);
/// The declination (degrees) is added last; the sum is not brought back below 360. Without a horizontal field
/// 3600000.
[[nodiscard]] float CalcAzimuth(const CurrentScan& scan, float declination);

/// The running totals of a run, in metres.
struct HoleWay {
    float east = 0;
    float north = 0;
};

/// Adds the scan's step of the way, from its channels 7 (azimuth) and 8 (inclination). By time there is no
/// step; an azimuth below 0 or above 360 degrees adds nothing.
void CalcHoleEastNorth(const CurrentScan& scan, const RunSetup& run, HoleWay& way);

/// Fills channels 7 to 12 of each scan: azimuth, inclination, total field, east, north, distance.
class Deviation final : public DerivedValues {
  public:
    /// `way` is the run's; it goes on from where it stands.
    Deviation(const RunSetup& run, HoleWay& way) : run_(run), way_(way) {}

    void derive(CurrentScan& scan) override;

  private:
    const RunSetup& run_;
    HoleWay& way_;
};

} // namespace tarvik
