// What kind of box is simulated and how it behaves; everything else follows from these and the seed.
#pragma once

#include "simulator/faults.h"
#include "simulator/units.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lcusim {

enum class LcuModel : std::uint8_t { lcu2Plus, lcu4 };

/// What the model alone decides.
struct ModelTraits {
    const char* name;
    std::uint8_t healthyStatus;
    double countsPerCentimetre; ///< of the depth counter: what scans carry and "TD" steps by
};

constexpr ModelTraits traitsOf(LcuModel model) {
    return model == LcuModel::lcu4 ? ModelTraits{"LCU4", 145, 4.0} : ModelTraits{"LCU2Plus", 129, 1.0};
}

struct WinchOptions {
    double startDepth = 0;                ///< metres, as the depth counter reads at switch-on
    double speed = 6;                     ///< metres a minute, without sign
    double startDelay = 0;                ///< seconds between "V" and the drum turning
    std::optional<double> stopDepth = {}; ///< metres; the operator stops the drum there
    std::optional<int> direction = {}; ///< +1 down, -1 up; unset: the sign of the last "TD", down before any
};

struct SimulatorOptions {
    LcuModel model = LcuModel::lcu2Plus;
    int mode = 1; ///< tool mode, 1 or 2
    std::uint64_t seed = 1;
    bool gentle = false;              ///< replies and scans in one piece, steady winch, true echo bytes
    std::optional<int> onlyBaud = {}; ///< unset: the box follows the speed of the host
    std::size_t transmitQueue = 4096; ///< bytes the box can hold back when its line is full
    std::string boxFirmware = "4.07";
    std::string toolFirmware = "2.13"; ///< empty: the tool does not answer
    WinchOptions winch = {};
    std::vector<Fault> faults = {};
};

} // namespace lcusim
