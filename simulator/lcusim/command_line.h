// The options of lcusim.
#pragma once

#include "simulator/options.h"

#include <filesystem>
#include <span>
#include <string>

namespace lcusim {

struct CommandLine {
    SimulatorOptions box = {};
    std::string tool = {};
    std::filesystem::path tools = {}; ///< folder of the *.tool files
    std::filesystem::path link = {};
    std::filesystem::path record = {};
    std::filesystem::path commands = {};
    double timeFactor = 1;
    bool exitAfterClose = false;
    bool help = false;
    std::string problem = {}; ///< one sentence when the options are wrong
};

[[nodiscard]] CommandLine parseCommandLine(std::span<const char* const> arguments);

[[nodiscard]] std::string helpText();

} // namespace lcusim
