#include "cli/console_lines.h"

#include <algorithm>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarvik {

void ConsoleLines::endProgress() {
    if (shown_ > 0) out_ << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
    shown_ = 0;
}

void ConsoleLines::line(std::string_view text) {
    endProgress();
    out_ << text << '\n' << std::flush;
}

void ConsoleLines::progress(std::string_view text, std::int64_t tickMs) {
    if (columns_ <= 0) {
        if (progressTick_ && tickMs - *progressTick_ < progressEveryMs) return;
        progressTick_ = tickMs;
        return line(text);
    }
    // The last column stays free: a character in it would wrap the line on some terminals.
    const std::string_view shown = text.substr(0, static_cast<std::size_t>(columns_ - 1));
    out_ << '\r' << shown << std::string(shown_ - std::min(shown_, shown.size()), ' ') << std::flush;
    shown_ = shown.size();
}

int terminalColumns() {
    constexpr int usual = 80; // of a terminal that does not tell
    if (::isatty(STDERR_FILENO) == 0) return 0;
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual;
    return size.ws_col;
}

} // namespace tarvik
