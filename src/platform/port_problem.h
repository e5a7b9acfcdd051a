// Why a serial device could not be opened, in plain sentences that say what to do about it.
#pragma once

#include "platform/serial_port.h"

#include <filesystem>

namespace tarvik {

struct PortProblem {
    std::int32_t code; ///< of PortError
    std::string sentence;
};

/// What an `errno` of opening, locking or asking `device` means; COM`port` is set to it.
[[nodiscard]] PortProblem portProblem(int error, std::int32_t port, const std::filesystem::path& device);

[[nodiscard]] PortProblem portWithoutDevice(std::int32_t port);

} // namespace tarvik
