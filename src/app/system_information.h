// What machine this is, in two texts: start lines of the status log and head lines of the error file.
#pragma once

#include "platform/system_info.h"

#include <string>

namespace tarvik {

struct SystemTexts {
    std::string operatingSystem;
    /// "Memory : 16384 mbytes"; empty when the figure overflows its 16-bit integer (above 32,767 MB).
    std::string memory;
    /// Why `memory` is empty, for one entry in the error file; empty otherwise.
    std::string memoryProblem;
};

[[nodiscard]] SystemTexts systemTexts(const SystemInfo& system);

/// Windows 95/98, Windows NT and 2000 (every version from 5 on reports "Windows 2000"; support staff rely on
/// it), or Linux.
[[nodiscard]] std::string operatingSystemText(const SystemInfo& system);

/// Throws Failure(overflow) above 32,767 MB.
[[nodiscard]] std::string memoryText(std::uint64_t bytes);

} // namespace tarvik
