// The verbs of the command line, and what they share.
#pragma once

#include "cli/arguments.h"
#include "program/program.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarvik {

/// Exit codes of the program.
enum ExitCode : int { exitDone = 0, exitFailed = 1, exitUsage = 2 };

struct Verb {
    std::string_view name;
    std::string_view usage;   ///< what follows "tarvik "
    std::string_view purpose; ///< a sentence or two for the help
    std::vector<Option> options;
    int (*run)(const Arguments& arguments);
};

// One file each.
[[nodiscard]] Verb findVerb();
[[nodiscard]] Verb logVerb();
[[nodiscard]] Verb infoVerb();
[[nodiscard]] Verb lasVerb();
[[nodiscard]] Verb fitVerb();
[[nodiscard]] Verb calibrateVerb();
[[nodiscard]] Verb calibrationsVerb();
[[nodiscard]] Verb equipmentVerb();
[[nodiscard]] Verb consoleVerb();

/// Understood by every verb: where the program lives and which device a COM port is.
[[nodiscard]] std::vector<Option> commonOptions();
/// Throws UsageError.
[[nodiscard]] ProgramOptions programOptions(const Arguments& arguments);

/// Runs the program on the words behind its name; the exit code. Results go to standard output, progress and
/// errors to standard error. `further` are verbs of the rooms above, such as those that draw.
[[nodiscard]] int runCommandLine(std::span<const std::string_view> words, std::vector<Verb> further = {});

} // namespace tarvik
