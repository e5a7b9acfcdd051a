// What an engineer can type to the LCU, with its meaning: shown beside the command boxes, never enforced.
#pragma once

#include <span>
#include <string_view>

namespace tarvik {

struct KnownCommand {
    std::string_view text;
    std::string_view meaning;
    bool lcu4Only = false;
    bool needsValue = false; ///< a value follows the letters
};

[[nodiscard]] std::span<const KnownCommand> knownCommands();

} // namespace tarvik
