// Everything that decoding a scan needs to know beforehand, worked out once when a run starts.
#pragma once

#include "base/current_equipment.h"
#include "base/limits.h"
#include "base/run_setup.h"
#include "lcu/lcu_models.h"

#include <array>
#include <string>

namespace tarvik {

struct ScanSetup {
    /// The polynomial of one channel; order 0: the channel reads 0 in engineering units.
    struct Polynomial {
        int order = 0;
        std::array<double, maxCoefficients> coefficients{};
    };

    const LcuModel* model = nullptr;
    std::string toolCode; ///< without blanks around it
    int channels = 0;     ///< of the tool in its mode, 0 to 20

    // Index 1 to 20 are the channels.
    std::array<SensorFactor, maxChannels + 1> factors{};
    std::array<Polynomial, maxChannels + 1> polynomials{};

    RunSetup run;
};

/// The calibration set is the one of the tool's mode; with a mode other than 1 and 2 there are no channels
/// and no calibrations.
[[nodiscard]] ScanSetup prepareScans(const CurrentTool& tool, const LcuModel* model, const RunSetup& run);

} // namespace tarvik
