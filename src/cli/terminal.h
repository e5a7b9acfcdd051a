// A terminal as the shell of the program: no window, no frame to draw, boxes on standard error.
#pragma once

#include "cli/console_operator.h"
#include "cli/stop_signals.h"
#include "cli/verb.h"

namespace tarvik {

constexpr std::string_view noLcuAdvice =
    "No LCU was found. Is it switched on and connected? Name its device with --com1 DEV.\n";

class Terminal {
  public:
    explicit Terminal(Answer answer = Answer::no) : console_(answer) {}

    [[nodiscard]] Shell shell() {
        return {.operatorSide = console_,
                .view = view_,
                .window = window_,
                .display = display_,
                .yield = {},
                .searchCancelled = [this] { return signals_.arrived(); }};
    }
    [[nodiscard]] const StopSignals& signals() const { return signals_; }
    [[nodiscard]] OperatorSide& operatorSide() { return console_; }

  private:
    StopSignals signals_;
    ConsoleOperator console_;
    FrameView view_;
    MainWindow window_;
    MemoryDisplay display_;
};

/// Shows the red lines of the status log on standard error while it lives: what reading found damaged.
class RedLines final : public StatusViewer {
  public:
    explicit RedLines(StatusLog& log) : log_(log) { log_.addViewer(*this); }
    ~RedLines() override { log_.removeViewer(*this); }
    RedLines(const RedLines&) = delete;
    RedLines& operator=(const RedLines&) = delete;

    void showStatusLine(std::string_view viewerLine) override;

  private:
    StatusLog& log_;
};

/// The frame around a verb that talks to the LCU: start lines in the status log, and the closing lines when
/// it goes.
class Session {
  public:
    Session(const Arguments& arguments, Terminal& terminal);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Asks for the mode "ACQUIRE": true when an LCU answered and a run may be made.
    [[nodiscard]] bool acquire();

    Program program;
};

} // namespace tarvik
