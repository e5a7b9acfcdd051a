// The commands that the box understands. A command is a text without its line feed; capitals matter.
#pragma once

#include "simulator/options.h"

#include <cstdint>
#include <string_view>

namespace lcusim {

enum class Verb : std::uint8_t {
    unknown,
    status,       ///< Q
    stop,         ///< X
    start,        ///< V
    single,       ///< U
    boxFirmware,  ///< Y
    toolFirmware, ///< y
    powerOff,     ///< P
    depth,        ///< D
    setDepth,     ///< D1234, centimetres
    byDepth,      ///< TD+5, depth counts
    byTime,       ///< TT50, hundredths of a second
    setUp,        ///< everything that only prepares the tool
};

constexpr std::size_t verbCount = 13;

struct Command {
    Verb verb = Verb::unknown;
    double number = 0; ///< behind the letters; 0 when there is none
    std::string_view text;
};

[[nodiscard]] Command parseCommand(LcuModel model, std::string_view text);

} // namespace lcusim
