// `tarvik` without a verb: the desktop.
#pragma once

#include <span>
#include <string_view>

namespace tarvik {

/// No word at all, or options only (but those that ask for help or the version).
[[nodiscard]] bool meansDesktop(std::span<const std::string_view> words);

/// Runs until the operator leaves; the exit code.
[[nodiscard]] int runDesktop(int argc, char** argv);

} // namespace tarvik
