// Which device of this machine a COM port is: the section "Ports" of the settings store. Read before the
// settings proper, because the ports are built with the platform. (Drives are the platform's own:
// platform/places.h.)
#pragma once

#include "platform/settings_store.h"

#include <array>
#include <string>

namespace tarvik {

struct MachineMap {
    std::array<std::string, 4> ports; ///< COM1 to COM4; empty means the default device
};

[[nodiscard]] MachineMap loadMachineMap(const SettingsStore& store);

/// Writes what differs from the store and commits; a port that lost its entry is written empty.
void saveMachineMap(SettingsStore& store, const MachineMap& map);

} // namespace tarvik
