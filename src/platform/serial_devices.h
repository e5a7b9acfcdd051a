// The serial devices of this machine, for a COM port that nobody has given a device.
#pragma once

#include <filesystem>
#include <vector>

namespace tarvik {

/// Built-in ports first, then USB adapters, each kind by number. Built-in ports without hardware behind
/// them (most machines list 4 or 32 of those) are left out.
[[nodiscard]] std::vector<std::filesystem::path>
serialDevices(const std::filesystem::path& terminals = "/sys/class/tty",
              const std::filesystem::path& deviceFolder = "/dev");

} // namespace tarvik
