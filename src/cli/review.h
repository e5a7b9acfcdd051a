// A run file or a LAS file opened for review from the command line.
#pragma once

#include "cli/terminal.h"

namespace tarvik {

/// The option with which a verb asks for the tolerant reading of LAS files.
[[nodiscard]] Option tolerantOption();

/// The program without its equipment, which reviewing does not need; the red lines of the log are shown.
class Review {
  public:
    explicit Review(const Arguments& arguments);
    ~Review();
    Review(const Review&) = delete;
    Review& operator=(const Review&) = delete;

    /// Nothing when the file cannot be opened; standard error says why. A long loading shows its progress.
    [[nodiscard]] std::optional<ReviewLog> open(const Path& file);

    /// A line of progress for what begins now, unless it is done at once. `done` takes the line away.
    [[nodiscard]] Progress progress();
    void done() { terminal_.lines().endProgress(); }

    [[nodiscard]] Program& program() { return program_; }

  private:
    [[nodiscard]] std::optional<ReviewLog> openLas(const Path& file, const Progress& progress);

    bool tolerant_;
    Terminal terminal_;
    Program program_;
    RedLines red_;
};

} // namespace tarvik
