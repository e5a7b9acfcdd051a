#include "base/file_names.h"

#include "base/text.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view forbidden = R"(/\:*?"<>|)";
constexpr std::size_t longestName = 100; ///< leaves room for tool code, run number and extension

bool isForbidden(char c) {
    return forbidden.find(c) != std::string_view::npos || static_cast<unsigned char>(c) < ' ';
}

} // namespace

bool canStandInFileName(std::string_view text) {
    return !text.empty() && std::ranges::none_of(text, isForbidden);
}

std::string nameProblem(std::string_view name) {
    const std::string_view text = trimmed(name);
    if (text.empty()) return "Enter a name.";
    if (!canStandInFileName(text)) return R"(A name cannot hold any of / \ : * ? " < > |)";
    if (text.starts_with('.') || text.ends_with('.')) return "A name cannot begin or end with a full stop.";
    if (text.size() > longestName) return "The name is too long: at most 100 characters, fewer with accents.";
    return {};
}

} // namespace tarvik
