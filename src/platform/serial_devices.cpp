#include "platform/serial_devices.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <string_view>
#include <utility>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 4> kinds{"ttyS", "ttyAMA", "ttyUSB", "ttyACM"};

/// Where a name comes in the list: kind, number.
std::pair<std::size_t, int> rank(std::string_view name) {
    for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
        if (!name.starts_with(kinds[kind])) continue;
        const char* const end = name.data() + name.size();
        int number = 0;
        const auto read = std::from_chars(name.data() + kinds[kind].size(), end, number);
        if (read.ec == std::errc() && read.ptr == end) return {kind, number};
    }
    return {kinds.size(), 0};
}

/// A built-in port tells its chip; 0 is a place where one could be.
bool hasHardware(const fs::path& terminal) {
    std::error_code error;
    if (!fs::exists(terminal / "device", error)) return false;
    int chip = 0;
    return !(std::ifstream(terminal / "type") >> chip) || chip != 0;
}

} // namespace

std::vector<fs::path> serialDevices(const fs::path& terminals, const fs::path& deviceFolder) {
    std::vector<fs::path> devices;
    std::error_code error;
    for (fs::directory_iterator at(terminals, error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        const fs::path device = deviceFolder / at->path().filename();
        std::error_code missing;
        if (rank(device.filename().string()).first < kinds.size() && hasHardware(at->path()) &&
            fs::exists(device, missing))
            devices.push_back(device);
    }
    std::ranges::sort(devices, {}, [](const fs::path& device) { return rank(device.filename().string()); });
    return devices;
}

} // namespace tarvik
