// The state of the link in words, for the screens that show it and ask over it.
#pragma once

#include "app/link_state.h"
#include "lcu/lcu_commands.h"

#include <string>

namespace tarvik {

struct LinkWords {
    std::string port;     ///< "COM1", "closed" …
    std::string model;    ///< "Interface LCU4" …
    std::string speed;    ///< "9600 baud"
    std::string firmware; ///< of the box
    std::string status;   ///< of the last status answer
    bool healthy = false; ///< the last status answer was good
};

[[nodiscard]] LinkWords linkWords(const LinkState& link);

/// Why nothing can be asked over the link now, and what to do; empty when it can.
[[nodiscard]] std::string whyNotToAsk(const LinkState& link);

/// How a question for the status ended.
[[nodiscard]] std::string statusOutcome(LinkResult result, const LinkState& link);

struct FirmwareWords {
    std::string lcu;
    std::string tool;
};

/// Asks the box and the tool; who does not answer is said to be silent. whyNotToAsk() goes before.
[[nodiscard]] FirmwareWords readFirmware(LcuCommands& lcu);

} // namespace tarvik
