// The run under review: opened from a run file or a LAS file, shown, closed.
#pragma once

#include "base/review_log.h"
#include "program/program.h"
#include "screens/intro_screen.h"
#include "screens/link_gate.h"

#include <optional>

namespace tarvik {

class ReviewSession {
  public:
    /// All outlive the session.
    ReviewSession(Program& program, IntroScreen& screen, LinkGate& gate)
        : program_(program), screen_(screen), gate_(gate) {}
    /// The views outlast the log that they show.
    ~ReviewSession() { hand(nullptr); }
    ReviewSession(const ReviewSession&) = delete;
    ReviewSession& operator=(const ReviewSession&) = delete;

    /// False when the file cannot be read; the reason has been shown.
    bool open(const Path& file);
    void close();
    /// What resets the print button clears the flag that makes exit ask; a run that is still shown sets it
    /// again.
    void keepExitQuestion();
    /// Draws what is open, or what can be opened. Sets the flag that makes exit ask.
    void show();
    /// The whole run in the window.
    void showEquallySpaced();

    /// A run or LAS file to compare with; false when it cannot be read, the reason has been shown.
    bool openSecond(const Path& file);
    void closeSecond() { second_.reset(); }
    [[nodiscard]] const ReviewLog* second() const { return second_ ? &*second_ : nullptr; }

    [[nodiscard]] const ReviewLog* log() const { return log_ ? &*log_ : nullptr; }
    [[nodiscard]] const Path& file() const { return file_; }

  private:
    [[nodiscard]] std::optional<ReviewLog> read(const Path& file);
    [[nodiscard]] std::optional<ReviewLog> readRun(const Path& file);
    [[nodiscard]] Progress progress();
    void showReading(int percent, std::string_view words);
    void showEmpty();
    [[nodiscard]] std::vector<DepthMark> notes() const;
    void hand(const ReviewLog* log);

    Program& program_;
    IntroScreen& screen_;
    LinkGate& gate_;
    std::optional<ReviewLog> log_;
    std::optional<ReviewLog> second_;
    Path file_;
};

} // namespace tarvik
