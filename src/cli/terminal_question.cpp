#include "cli/terminal_question.h"

#include "base/text.h"

#include <csignal>
#include <fstream>
#include <string>

namespace tarvik {

namespace {

/// A verb may have set Ctrl-C aside for the time of its work.
class InterruptLetThrough {
  public:
    InterruptLetThrough() {
        sigset_t set{};
        sigemptyset(&set);
        sigaddset(&set, SIGINT);
        sigprocmask(SIG_UNBLOCK, &set, &before_);
    }
    ~InterruptLetThrough() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    InterruptLetThrough(const InterruptLetThrough&) = delete;
    InterruptLetThrough& operator=(const InterruptLetThrough&) = delete;

  private:
    sigset_t before_{};
};

} // namespace

std::optional<Answer> askOnTerminal(std::string_view question) {
    constexpr const char* ownTerminal = "/dev/tty";
    std::ofstream out(ownTerminal);
    std::ifstream in(ownTerminal);
    if (!out || !in) return std::nullopt;
    const InterruptLetThrough interrupt;
    out << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(in, answer);
    return upperCase(trimmed(answer)).starts_with('Y') ? Answer::yes : Answer::no;
}

} // namespace tarvik
