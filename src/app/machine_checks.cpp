#include "app/machine_checks.h"

#include "base/failure.h"
#include "base/text.h"

namespace tarvik {

namespace {

std::string portName(std::size_t index) {
    return "COM" + std::to_string(index + 1);
}

} // namespace

std::string portProblem(const MachineMap& map, std::size_t index) {
    const std::string& device = map.ports.at(index);
    if (device.empty()) return {};
    if (!Path(device).is_absolute()) return "The full path of a device, such as /dev/ttyUSB0.";
    for (std::size_t other = 0; other < map.ports.size(); ++other) {
        if (other != index && map.ports[other] == device) {
            return portName(other) + " is this device already: a device can be one port only.";
        }
    }
    return {};
}

std::string driveProblem(const Places& places, const Files& files, std::string_view letter,
                         std::string_view folder) {
    const std::string capital = upperCase(trimmed(letter));
    if (capital.size() != 1 || capital[0] < 'A' || capital[0] > 'Z') return "A drive letter from A to Z.";
    const std::string text(trimmed(folder));
    if (text.empty()) return "Choose the folder that stands for this drive.";
    Places with = places;
    std::string problem;
    takeDrives(with, {{capital[0], text}}, [&](const std::string& why) { problem = why; });
    if (!problem.empty()) return "The folder must lie in " + places.root.string() + ".";
    try {
        const Path at = with.drive(capital);
        // A folder that is empty lists as one; a file and a folder that is not there do not exist as `at/.`.
        if (!files.exists(at / ".")) return at.string() + " is no folder on this machine.";
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

} // namespace tarvik
