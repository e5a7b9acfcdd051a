// A question to whoever sits at the terminal, also when standard input brings something else.
#pragma once

#include "app/operator_side.h"

#include <optional>
#include <string_view>

namespace tarvik {

/// Yes to a word that begins with "y", no to everything else; nothing when there is no terminal.
[[nodiscard]] std::optional<Answer> askOnTerminal(std::string_view question);

} // namespace tarvik
