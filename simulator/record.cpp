#include "simulator/record.h"

#include <algorithm>
#include <cstdio>

namespace lcusim {

std::string_view nameOf(ScanFate fate) {
    constexpr std::array<std::string_view, 4> names{"sent", "damaged", "dropped", "lost"};
    return names[static_cast<std::size_t>(fate)];
}

std::vector<std::string> MemoryRecord::commandTexts() const {
    std::vector<std::string> texts;
    texts.reserve(commands_.size());
    for (const CommandRecord& command : commands_) texts.push_back(command.text);
    return texts;
}

void MemoryRecord::clear() {
    scans_.clear();
    commands_.clear();
}

void StreamRecord::scan(const ScanRecord& scan) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::array<char, 2 * std::tuple_size_v<decltype(scan.bytes)>> hex{};
    for (std::size_t i = 0; i < scan.size; ++i) {
        hex[2 * i] = digits[scan.bytes[i] >> 4];
        hex[2 * i + 1] = digits[scan.bytes[i] & 15];
    }
    std::array<char, 40> depth{};
    const int length = std::snprintf(depth.data(), depth.size(), "%.4f", scan.depth);
    out_ << "scan " << scan.number << ' ' << scan.sampledAt << ' '
         << std::string_view(depth.data(), static_cast<std::size_t>(length)) << ' ' << nameOf(scan.fate)
         << ' ' << std::string_view(hex.data(), 2 * scan.size) << std::endl;
}

void StreamRecord::command(const CommandRecord& command) {
    out_ << "command " << command.number << ' ' << command.heardAt << ' '
         << (command.understood ? "understood " : "unknown ") << command.text << std::endl;
}

} // namespace lcusim
