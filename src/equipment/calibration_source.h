// Where the calibrations of a tool's sensors come from.
#pragma once

#include "base/calibration.h"

#include <string_view>
#include <vector>

namespace tarvik {

class CalibrationSource {
  public:
    virtual ~CalibrationSource() = default;

    /// All calibrations on record for one tool, oldest first, each with the name of its sensor: the last one
    /// of a sensor is the one in use. Code and serial number match exactly after trimming.
    [[nodiscard]] virtual std::vector<Calibration> calibrationsOf(std::string_view toolCode,
                                                                  std::string_view serialNumber) const = 0;
};

/// A workshop where nothing was ever calibrated.
class NoCalibrations final : public CalibrationSource {
  public:
    [[nodiscard]] std::vector<Calibration> calibrationsOf(std::string_view, std::string_view) const override {
        return {};
    }
};

} // namespace tarvik
