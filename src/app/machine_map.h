// How this machine's devices and folders stand behind the names of old: which device a COM port is, which
// folder a drive letter is. Two sections of the settings store, "Ports" and "Drives"; read before anything
// else, because the run history lies on a drive.
#pragma once

#include "platform/places.h"
#include "platform/settings_store.h"

#include <array>
#include <map>
#include <string>

namespace tarvik {

struct MachineMap {
    std::array<std::string, 4> ports;   ///< COM1 to COM4; empty means the default device
    std::map<char, std::string> drives; ///< by capital letter; a letter without an entry is not mapped

    friend bool operator==(const MachineMap&, const MachineMap&) = default;
};

[[nodiscard]] MachineMap loadMachineMap(const SettingsStore& store);

/// Writes what differs from the store and commits; a port or drive that lost its entry is written empty.
void saveMachineMap(SettingsStore& store, const MachineMap& map);

/// The running program takes the drives D to Z as they are now. Drive C stays until the next start: the run
/// history that is being written lies on it.
void useDrives(Places& places, const MachineMap& map);

} // namespace tarvik
