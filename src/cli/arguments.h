// The words behind `tarvik <verb>`: options with and without values, and the rest.
#pragma once

#include <limits>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvik {

/// The command line cannot be understood; the text says which word and what is expected.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Option {
    std::string_view name;      ///< "--interval", "-o"
    std::string_view valueName; ///< "X" in the help; empty for an option without a value
    std::string_view help;
};

/// Both ends belong to it.
struct Range {
    double least = std::numeric_limits<double>::lowest();
    double most = std::numeric_limits<double>::max();

    [[nodiscard]] bool holds(double value) const { return value >= least && value <= most; }
    /// " from 1 to 20", " of 1 or more", or nothing for a range without limits.
    [[nodiscard]] std::string text() const;
};

class Arguments {
  public:
    /// Options may stand anywhere, as "--name value" or "--name=value"; "--" ends them.
    /// Throws UsageError for an unknown option or a missing value.
    Arguments(std::span<const std::string_view> words, std::span<const Option> known);

    [[nodiscard]] bool has(std::string_view option) const;
    /// The last value given; a repeated option's earlier values are in `all`.
    [[nodiscard]] std::optional<std::string> text(std::string_view option) const;
    [[nodiscard]] std::vector<std::string> all(std::string_view option) const;
    /// The same for a file, a folder or a device: UsageError when the value is empty.
    [[nodiscard]] std::optional<std::string> name(std::string_view option) const;
    /// UsageError when the value is no number, or lies outside the range.
    [[nodiscard]] std::optional<double> number(std::string_view option, const Range& range = {}) const;
    [[nodiscard]] std::optional<int> whole(std::string_view option, const Range& range = {}) const;
    /// One of `choices`, told apart without regard to case and returned as written there.
    [[nodiscard]] std::optional<std::string> oneOf(std::string_view option,
                                                   std::span<const std::string_view> choices) const;

    [[nodiscard]] const std::vector<std::string>& rest() const { return rest_; }
    /// The one word behind the options; UsageError naming `what` when there is another number of them.
    [[nodiscard]] const std::string& only(std::string_view what) const;

  private:
    std::vector<std::pair<std::string, std::string>> given_;
    std::vector<std::string> rest_;
};

/// A help text for one verb: the usage line, what it does, a line for each option.
[[nodiscard]] std::string helpText(std::string_view usage, std::string_view purpose,
                                   std::span<const Option> options);

} // namespace tarvik
