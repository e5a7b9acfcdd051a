#include "simulator/command_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace lcusim {

namespace {

/// What follows the letters of a command.
enum class Argument : std::uint8_t {
    none,
    whole,   ///< digits, with a minus sign in front when negative
    step,    ///< "+" or "-", then digits, not all of them 0
    decimal, ///< above 0
};

struct CommandRule {
    std::string_view letters;
    Argument argument;
    Verb verb;
    bool lcu4Only = false;
};

constexpr std::array<CommandRule, 22> rules{{
    {"Q", Argument::none, Verb::status},         {"X", Argument::none, Verb::stop},
    {"V", Argument::none, Verb::start},          {"U", Argument::none, Verb::single},
    {"Y", Argument::none, Verb::boxFirmware},    {"y", Argument::none, Verb::toolFirmware},
    {"P", Argument::none, Verb::powerOff},       {"D", Argument::none, Verb::depth},
    {"D", Argument::whole, Verb::setDepth},      {"TD", Argument::step, Verb::byDepth},
    {"TT", Argument::decimal, Verb::byTime},     {"ER0", Argument::none, Verb::setUp, true},
    {"ER1", Argument::none, Verb::setUp, true},  {"ER30", Argument::none, Verb::setUp, true},
    {"ER56", Argument::none, Verb::setUp, true}, {"MUX", Argument::none, Verb::setUp},
    {"!", Argument::none, Verb::setUp},          {"I", Argument::none, Verb::setUp},
    {"i", Argument::none, Verb::setUp},          {"IA", Argument::whole, Verb::setUp},
    {"PA", Argument::whole, Verb::setUp},        {"OPEN", Argument::none, Verb::setUp},
}};

template <typename Number>
std::optional<double> wholly(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return {};
    return static_cast<double>(number);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::optional<double> numberFor(Argument argument, std::string_view text) {
    std::optional<double> number;
    switch (argument) {
    case Argument::none:
        return text.empty() ? std::optional(0.0) : std::nullopt;
    case Argument::whole:
        return wholly<std::int32_t>(text);
    case Argument::step:
        if (text.size() < 2 || !isDigit(text[1]) || (text[0] != '+' && text[0] != '-')) return {};
        number = wholly<std::int32_t>(text.substr(text[0] == '+' ? 1 : 0));
        return number && *number != 0 ? number : std::nullopt;
    case Argument::decimal:
        if (text.empty() || !isDigit(text[0])) return {};
        number = wholly<double>(text);
        return number && *number > 0 ? number : std::nullopt;
    }
    return {};
}

/// A sensor of the tool and its setting: "a1", "f21", "pr8", "S0".
bool isSetting(std::string_view item) {
    constexpr std::string_view sensors = "ABCDEFGHIJPQRSabcdefghijpqrs";
    if (item.starts_with("pr")) item.remove_prefix(1);
    if (item.size() < 2 || sensors.find(item[0]) == std::string_view::npos) return false;
    return std::ranges::all_of(item.substr(1), isDigit);
}

/// A threshold level and its width: one or more digits with up to two letters before them, then ",250".
bool isThreshold(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos || text.substr(comma + 1) != "250") return false;
    std::string_view level = text.substr(0, comma);
    for (int letters = 0; letters < 2 && !level.empty() && !isDigit(level[0]); ++letters)
        level.remove_prefix(1);
    return !level.empty() && std::ranges::all_of(level, isDigit);
}

/// Settings joined by single commas.
bool areSettings(std::string_view text) {
    for (;;) {
        const std::size_t comma = text.find(',');
        if (!isSetting(text.substr(0, comma))) return false;
        if (comma == std::string_view::npos) return true;
        text.remove_prefix(comma + 1);
    }
}

} // namespace

Command parseCommand(LcuModel model, std::string_view text) {
    for (const CommandRule& rule : rules) {
        if (!text.starts_with(rule.letters) || (rule.lcu4Only && model != LcuModel::lcu4)) continue;
        if (const auto number = numberFor(rule.argument, text.substr(rule.letters.size())))
            return {rule.verb, *number, text};
    }
    if (isThreshold(text) || areSettings(text)) return {Verb::setUp, 0, text};
    return {Verb::unknown, 0, text};
}

} // namespace lcusim
