#include "cli/terminal_question.h"

#include "base/text.h"

#include <fstream>
#include <string>

namespace tarvik {

std::optional<Answer> askOnTerminal(std::string_view question) {
    constexpr const char* ownTerminal = "/dev/tty";
    std::ofstream out(ownTerminal);
    std::ifstream in(ownTerminal);
    if (!out || !in) return std::nullopt;
    out << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(in, answer);
    return upperCase(trimmed(answer)).starts_with('Y') ? Answer::yes : Answer::no;
}

} // namespace tarvik
