#include "cli/console_operator.h"

#include "base/text.h"

namespace tarvik {

namespace {

/// Boxes break their lines with CR LF; a terminal shows one sentence after the other.
std::string onOneLine(std::string_view text) {
    std::string line;
    for (const char c : trimmed(text)) {
        if (c == '\n')
            line += ' ';
        else if (c != '\r')
            line += c;
    }
    return line;
}

} // namespace

void ConsoleOperator::message(std::string_view title, std::string_view text, Icon) {
    lines_.line(std::string(title) + ": " + onOneLine(text));
}

Answer ConsoleOperator::ask(std::string_view title, std::string_view text, Icon) {
    const std::string question = std::string(title) + ": " + onOneLine(text);
    if (asker_) return asker_(question);
    lines_.line(question + (answer_ == Answer::yes ? " -> yes" : " -> no"));
    return answer_;
}

void ConsoleOperator::notice(std::string_view title, std::string_view text, Icon icon) {
    if (notices_.insert(std::string(title) + "\n" + std::string(text)).second) message(title, text, icon);
}

void ConsoleOperator::showError(const ErrorReport& error, std::string_view, const ErrorFiling& filed) {
    errorShown_ = true;
    notice("Error " + std::to_string(error.number),
           error.description + " (" + error.routine +
               (filed.problem.empty() ? ", see " : ", not recorded in ") + filed.file + ")",
           Icon::critical);
}

void ConsoleOperator::showOverflow(std::span<const std::string> lines, const ErrorFiling&) {
    for (const std::string& line : lines) lines_.line(line);
}

void ConsoleOperator::statusText(std::string_view text) {
    if (!text.empty()) lines_.line(text);
}

void ConsoleOperator::linkPanel(std::string_view text) {
    if (!text.empty()) lines_.line(trimmed(text));
}

void RedLines::showStatusLine(std::string_view viewerLine) {
    constexpr std::size_t timeWidth = 10; // "hh:mm:ss" and two blanks
    constexpr std::string_view plainRed = R"(\b\2)";
    if (viewerLine.size() < timeWidth || !viewerLine.substr(timeWidth).starts_with(plainRed)) return;
    const std::string_view text = viewerLine.substr(timeWidth + plainRed.size());
    if (shown_.emplace(text).second) lines_.line(text);
}

} // namespace tarvik
