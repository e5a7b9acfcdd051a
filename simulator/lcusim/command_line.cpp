#include "simulator/lcusim/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace lcusim {

namespace {

/// Reads a number that lies within bounds; says what is wanted when it does not.
template <typename Number>
std::string number(std::string_view text, Number low, Number high, Number& into) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !(value >= low && value <= high))
        return "is no number between " + std::to_string(low) + " and " + std::to_string(high);
    into = value;
    return {};
}

std::string model(CommandLine& line, std::string_view value) {
    if (value != "LCU2Plus" && value != "LCU4") return "is neither LCU2Plus nor LCU4";
    line.box.model = value == "LCU4" ? LcuModel::lcu4 : LcuModel::lcu2Plus;
    return {};
}

std::string direction(CommandLine& line, std::string_view value) {
    if (value != "down" && value != "up") return "is neither down nor up";
    line.box.winch.direction = value == "down" ? 1 : -1;
    return {};
}

std::string baud(CommandLine& line, std::string_view value) {
    if (value != "9600" && value != "115200" && value != "both") return "is none of 9600, 115200 and both";
    line.box.onlyBaud.reset();
    if (value != "both") line.box.onlyBaud = value == "9600" ? 9600 : 115200;
    return {};
}

std::string stopDepth(CommandLine& line, std::string_view value) {
    double depth = 0;
    std::string problem = number(value, -100.0, 10'000.0, depth);
    if (problem.empty()) line.box.winch.stopDepth = depth;
    return problem;
}

std::string fault(CommandLine& line, std::string_view value) {
    ParsedFault parsed = parseFault(value);
    if (parsed.fault) line.box.faults.push_back(*parsed.fault);
    return parsed.problem;
}

struct Option {
    std::string_view name;
    std::string_view value; ///< what it is called in the help; empty: the option takes none
    std::string_view meaning;
    std::string (*set)(CommandLine& line, std::string_view value); ///< empty, or what is wrong with the value
};

constexpr std::array<Option, 20> options{{
    {"--model", "LCU2Plus|LCU4", "which box (LCU2Plus)", model},
    {"--tool", "CODE", "the tool on the cable",
     [](CommandLine& line, std::string_view value) { return line.tool = value, std::string{}; }},
    {"--mode", "1|2", "tool mode (1)",
     [](CommandLine& line, std::string_view value) { return number(value, 1, 2, line.box.mode); }},
    {"--tools", "DIR", "folder of the tool files",
     [](CommandLine& line, std::string_view value) { return line.tools = value, std::string{}; }},
    {"--link", "PATH", "symbolic link to make to the device",
     [](CommandLine& line, std::string_view value) { return line.link = value, std::string{}; }},
    {"--baud", "9600|115200|both", "speeds at which the box answers (both)", baud},
    {"--depth", "M", "depth at the start, metres (0)",
     [](CommandLine& line, std::string_view value) {
         return number(value, -100.0, 10'000.0, line.box.winch.startDepth);
     }},
    {"--speed", "M/MIN", "winch speed (6)",
     [](CommandLine& line, std::string_view value) {
         return number(value, 0.0, 300.0, line.box.winch.speed);
     }},
    {"--direction", "down|up", "which way the winch runs (the sign of the last TD)", direction},
    {"--delay", "S", "seconds from V to the start of the winch (0)",
     [](CommandLine& line, std::string_view value) {
         return number(value, 0.0, 3'600.0, line.box.winch.startDelay);
     }},
    {"--stop-depth", "M", "depth at which the winch stops (none)", stopDepth},
    {"--seed", "N", "seed of rock, noise and unkindness (1)",
     [](CommandLine& line, std::string_view value) {
         return number<std::uint64_t>(value, 0, UINT64_MAX, line.box.seed);
     }},
    {"--gentle", "", "whole answers and scans, steady winch",
     [](CommandLine& line, std::string_view) { return line.box.gentle = true, std::string{}; }},
    {"--firmware", "TEXT", "firmware version of the box (4.07)",
     [](CommandLine& line, std::string_view value) { return line.box.boxFirmware = value, std::string{}; }},
    {"--tool-firmware", "TEXT", "firmware version of the tool (2.13); empty: no answer",
     [](CommandLine& line, std::string_view value) { return line.box.toolFirmware = value, std::string{}; }},
    {"--fault", "FAULT", "a fault, see below; may be given many times", fault},
    {"--record", "FILE", "writes what was sent and heard, a line each",
     [](CommandLine& line, std::string_view value) { return line.record = value, std::string{}; }},
    {"--commands", "FILE", "writes the texts of the commands heard, a line each",
     [](CommandLine& line, std::string_view value) { return line.commands = value, std::string{}; }},
    {"--time-factor", "N", "lets the box live N times faster (1)",
     [](CommandLine& line, std::string_view value) { return number(value, 0.01, 1'000.0, line.timeFactor); }},
    {"--exit-after-close", "", "ends two seconds after the host has closed its port",
     [](CommandLine& line, std::string_view) { return line.exitAfterClose = true, std::string{}; }},
}};

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size() + 1), ' ');
    return text;
}

} // namespace

CommandLine parseCommandLine(std::span<const char* const> arguments) {
    CommandLine line;
    const auto wrong = [&line](std::string problem) {
        line.problem = std::move(problem);
        return line;
    };
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string name = arguments[i];
        line.help = line.help || name == "--help";
        if (name == "--help") continue;
        const auto* option = std::ranges::find(options, name, &Option::name);
        if (option == options.end()) return wrong(name + " is no option, --help lists them");
        if (!option->value.empty() && ++i == arguments.size())
            return wrong(name + " wants " + std::string(option->value));
        const std::string value = option->value.empty() ? "" : arguments[i];
        if (const std::string problem = option->set(line, value); !problem.empty())
            return wrong(name + " " + value + ": " + problem);
    }
    if (!line.help && line.tool.empty()) return wrong("name the tool on the cable with --tool");
    return line;
}

std::string helpText() {
    std::string text = "lcusim: a simulated LCU on a pseudo-terminal\n\nOptions:\n";
    for (const Option& option : options) {
        std::string left = "  " + std::string(option.name);
        if (!option.value.empty()) left += " " + std::string(option.value);
        text += padded(left, 28) + std::string(option.meaning) + "\n";
    }
    text += "\nFaults, as NAME@SCAN or NAME@cCOMMAND, then optionally xCOUNT and =VALUE:\n";
    for (const FaultRule& rule : faultRules()) {
        std::array<char, 32> value{};
        const auto end = std::to_chars(value.data(), value.data() + value.size(), rule.value).ptr;
        text += padded("  " + std::string(rule.name) + "=" + std::string(value.data(), end), 28) +
                std::string(rule.meaning) + "\n";
    }
    return text;
}

} // namespace lcusim
