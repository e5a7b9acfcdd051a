#include "app/system_information.h"

#include "base/failure.h"
#include "base/rounding.h"
#include "base/text.h"

namespace tarvik {

namespace {

std::string dotted(const SystemInfo& system) {
    return std::to_string(system.major) + "." + std::to_string(system.minor);
}

std::string windows95Text(const SystemInfo& system) {
    if (system.minor != 0) return "Windows 98  Version " + dotted(system);
    return "Windows 95  Version " + std::to_string(system.major);
}

std::string windowsNtText(const SystemInfo& system) {
    const std::string servicePack = system.buildText.substr(0, system.buildText.find('\0'));
    return (system.major >= 5 ? "Windows 2000" : "Windows NT") + (" version " + dotted(system)) + "  Build " +
           std::to_string(system.build) + "  " + servicePack;
}

} // namespace

std::string operatingSystemText(const SystemInfo& system) {
    switch (system.family) {
    case OsFamily::windows95:
        return windows95Text(system);
    case OsFamily::windowsNt:
        return windowsNtText(system);
    case OsFamily::linux:
        break;
    }
    return "Linux version " + system.release + "  Build " + system.buildText;
}

std::string memoryText(std::uint64_t bytes) {
    constexpr double bytesPerMegabyte = 1'048'576;
    return "Memory : " + std::to_string(toInt16(static_cast<double>(bytes) / bytesPerMegabyte)) + " mbytes";
}

SystemTexts systemTexts(const SystemInfo& system) {
    SystemTexts texts;
    texts.operatingSystem = operatingSystemText(system);
    try {
        texts.memory = memoryText(system.memoryBytes);
    } catch (const Failure&) {
        texts.memoryProblem =
            "Overflow: the memory of this machine does not fit the 16-bit figure of the log; "
            "the memory line stays empty, nothing else is affected";
    }
    return texts;
}

} // namespace tarvik
