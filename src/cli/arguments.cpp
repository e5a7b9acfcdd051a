#include "cli/arguments.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

const Option& find(std::span<const Option> known, std::string_view name) {
    const auto found = std::ranges::find(known, name, &Option::name);
    if (found == known.end()) throw UsageError("unknown option " + std::string(name));
    return *found;
}

std::string expectation(std::string_view option, std::string_view value, std::string_view expected) {
    return std::string(option) + " expects " + std::string(expected) + ", not \"" + std::string(value) + "\"";
}

/// A negative number is a value, not an option.
bool looksLikeOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-' && !parseNumber(word);
}

} // namespace

std::string Range::text() const {
    const Range open;
    if (most < open.most) return " from " + shortestNumber(least) + " to " + shortestNumber(most);
    return least > open.least ? " of " + shortestNumber(least) + " or more" : "";
}

Arguments::Arguments(std::span<const std::string_view> words, std::span<const Option> known) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word == "--") {
            rest_.insert(rest_.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
            return;
        }
        if (!looksLikeOption(word)) {
            rest_.emplace_back(word);
            continue;
        }
        const auto equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
        const Option& option = find(known, word.substr(0, equals));
        if (option.valueName.empty()) {
            if (equals != std::string_view::npos) {
                throw UsageError(std::string(option.name) + " takes no value");
            }
            given_.emplace_back(option.name, "");
        } else if (equals != std::string_view::npos) {
            given_.emplace_back(option.name, word.substr(equals + 1));
        } else if (i + 1 < words.size()) {
            given_.emplace_back(option.name, words[++i]);
        } else {
            throw UsageError(std::string(option.name) + " needs a value: " + std::string(option.help));
        }
    }
}

bool Arguments::has(std::string_view option) const {
    return std::ranges::find(given_, option,
                             [](const auto& pair) -> std::string_view { return pair.first; }) != given_.end();
}

std::vector<std::string> Arguments::all(std::string_view option) const {
    std::vector<std::string> values;
    for (const auto& [name, value] : given_) {
        if (name == option) values.push_back(value);
    }
    return values;
}

std::optional<std::string> Arguments::text(std::string_view option) const {
    auto values = all(option);
    if (values.empty()) return std::nullopt;
    return std::move(values.back());
}

std::optional<std::string> Arguments::name(std::string_view option) const {
    auto value = text(option);
    if (value && value->empty()) throw UsageError(std::string(option) + " expects a name, not an empty text");
    return value;
}

std::optional<double> Arguments::number(std::string_view option, const Range& range) const {
    const auto value = text(option);
    if (!value) return std::nullopt;
    const auto parsed = parseNumber(*value);
    if (!parsed || !range.holds(*parsed))
        throw UsageError(expectation(option, *value, "a number" + range.text()));
    return parsed;
}

std::optional<int> Arguments::whole(std::string_view option, const Range& range) const {
    const auto value = text(option);
    if (!value) return std::nullopt;
    const auto parsed = parseInteger(*value);
    if (!parsed || !std::in_range<int>(*parsed) || !range.holds(static_cast<double>(*parsed)))
        throw UsageError(expectation(option, *value, "a whole number" + range.text()));
    return static_cast<int>(*parsed);
}

std::optional<std::string> Arguments::oneOf(std::string_view option,
                                            std::span<const std::string_view> choices) const {
    const auto value = text(option);
    if (!value) return std::nullopt;
    std::string expected;
    for (const std::string_view choice : choices) {
        if (upperCase(choice) == upperCase(*value)) return std::string(choice);
        expected += (expected.empty() ? "" : " or ") + std::string(choice);
    }
    throw UsageError(expectation(option, *value, expected));
}

const std::string& Arguments::only(std::string_view what) const {
    if (rest_.size() == 1) return rest_.front();
    if (rest_.empty()) throw UsageError(std::string(what) + " is missing");
    throw UsageError("only one " + std::string(what) + " is expected, \"" + rest_[1] + "\" is one too many");
}

std::string helpText(std::string_view usage, std::string_view purpose, std::span<const Option> options) {
    std::size_t column = 0;
    for (const Option& option : options)
        column = std::max(column, option.name.size() + option.valueName.size() + 5);
    std::string text = "usage: tarvik " + std::string(usage) + "\n\n" + std::string(purpose) + "\n";
    if (!options.empty()) text += "\n";
    for (const Option& option : options) {
        std::string left = "  " + std::string(option.name);
        if (!option.valueName.empty()) left += " " + std::string(option.valueName);
        left.resize(column, ' ');
        text += left + std::string(option.help) + "\n";
    }
    return text;
}

} // namespace tarvik
