// Standard error as lines, one of which may be a line of progress.
//
// On a terminal the line of progress is written over again, cut to the terminal's width, and any other line
// takes its place. Elsewhere (a file, a pipe) a line of progress appears every five seconds.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string_view>

namespace tarvik {

class ConsoleLines {
  public:
    static constexpr std::int64_t progressEveryMs = 5000;

    /// `columns` is the width of the terminal, 0 when there is none.
    ConsoleLines(std::ostream& out, int columns) : out_(out), columns_(columns) {}

    void line(std::string_view text);
    void progress(std::string_view text, std::int64_t tickMs);
    /// The line of progress goes from the terminal; what was asked for has come.
    void endProgress();

  private:
    std::ostream& out_;
    int columns_;
    std::size_t shown_ = 0; ///< width of the progress that stands on the terminal
    std::optional<std::int64_t> progressTick_;
};

/// The width of the terminal behind standard error; 0 when it is none.
[[nodiscard]] int terminalColumns();

} // namespace tarvik
