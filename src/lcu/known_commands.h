// What an engineer can type to the LCU, with its meaning: shown beside the command boxes, never enforced. Of
// the set-up commands only their use is known; they are listed with that and nothing is guessed.
#pragma once

#include <span>
#include <string_view>

namespace tarvik {

struct KnownCommand {
    std::string_view text;
    std::string_view meaning;
    bool lcu4Only = false;
};

[[nodiscard]] std::span<const KnownCommand> knownCommands();

} // namespace tarvik
