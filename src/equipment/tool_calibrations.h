// Which calibration each sensor of the current tool uses.
#pragma once

#include "base/current_equipment.h"
#include "equipment/calibration_source.h"

namespace tarvik {

/// The calibration of a sensor that has none on record: counts pass through unchanged. A channel that the
/// program derives (it stands behind the measured ones, or is written over one) has the state "Synthetic";
/// the deviation tool's angles and total field are counts of 0.0001.
[[nodiscard]] Calibration defaultCalibration(const ToolRecord& record, int mode, int channel);

/// Gives each channel of both modes the last calibration on record for its name (in whatever case), or the
/// default.
void attachCalibrations(CurrentTool& tool, const CalibrationSource& source);

} // namespace tarvik
