// What is wrong with an entry of the machine's ports and drives, before it is kept. One sentence for the line
// below the field; empty when nothing is.
#pragma once

#include "app/machine_map.h"
#include "platform/files.h"
#include "platform/places.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

/// A COM port is the full path of a device, and of none that another COM port has. Empty is right: the
/// program then takes the next device it finds. `index` counts from 0.
[[nodiscard]] std::string portProblem(const MachineMap& map, std::size_t index);

/// A drive is a letter from A to Z and a folder that exists; a relative one counts as takeDrives() has it.
[[nodiscard]] std::string driveProblem(const Places& places, const Files& files, std::string_view letter,
                                       std::string_view folder);

} // namespace tarvik
