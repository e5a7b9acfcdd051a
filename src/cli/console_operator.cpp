#include "cli/console_operator.h"

#include <iostream>

namespace tarvik {

namespace {

/// Boxes break their lines with CR LF; a terminal shows one sentence after the other.
std::string onOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (c == '\n')
            line += ' ';
        else if (c != '\r')
            line += c;
    }
    return line;
}

} // namespace

void ConsoleOperator::message(std::string_view title, std::string_view text, Icon) {
    std::cerr << title << ": " << onOneLine(text) << "\n";
}

Answer ConsoleOperator::ask(std::string_view title, std::string_view text, Icon) {
    const std::string question = std::string(title) + ": " + onOneLine(text);
    if (asker_) return asker_(question);
    std::cerr << question << (answer_ == Answer::yes ? "-> yes" : "-> no") << "\n";
    return answer_;
}

void ConsoleOperator::notice(std::string_view title, std::string_view text, Icon icon) {
    if (++notices_[std::string(title) + "\n" + std::string(text)] == 1) message(title, text, icon);
}

void ConsoleOperator::showError(const ErrorReport& error, std::string_view, std::string_view errorFile) {
    notice("Error " + std::to_string(error.number),
           error.description + " (" + error.routine + ", see " + std::string(errorFile) + ")",
           Icon::critical);
}

void ConsoleOperator::statusText(std::string_view text) {
    if (!text.empty()) std::cerr << text << "\n";
}

void ConsoleOperator::linkPanel(std::string_view text) {
    if (!text.empty()) std::cerr << text << "\n";
}

} // namespace tarvik
