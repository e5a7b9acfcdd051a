// What the operating system says of itself, for the head lines of the logs.
#pragma once

#include <cstdint>
#include <string>

namespace tarvik {

enum class OsFamily { windows95, windowsNt, linux };

struct SystemInfo {
    OsFamily family = OsFamily::linux;
    int major = 0;
    int minor = 0;
    int build = 0;         ///< Windows
    std::string release;   ///< Linux: release numbers ("6.1.0")
    std::string buildText; ///< Linux: the kernel's build text; Windows: the service pack, up to its first NUL
    std::uint64_t memoryBytes = 0;
};

/// Asks the operating system.
[[nodiscard]] SystemInfo querySystem();

} // namespace tarvik
