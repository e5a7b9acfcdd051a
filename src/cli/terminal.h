// A terminal as the shell of the program: no window, no frame to draw, boxes on standard error.
#pragma once

#include "cli/console_lines.h"
#include "cli/console_operator.h"
#include "cli/verb.h"
#include "platform/stop_signals.h"

#include <functional>
#include <iostream>

namespace tarvik {

class Terminal {
  public:
    explicit Terminal(Answer answer = Answer::no)
        : lines_(std::cerr, terminalColumns()), console_(lines_, answer) {}
    explicit Terminal(ConsoleOperator::Asker asker)
        : lines_(std::cerr, terminalColumns()), console_(lines_, std::move(asker)) {}

    [[nodiscard]] Shell shell() {
        return {.operatorSide = console_,
                .view = view_,
                .window = window_,
                .display = display_,
                .yield = {},
                .searchCancelled = {}};
    }
    [[nodiscard]] ConsoleLines& lines() { return lines_; }
    [[nodiscard]] ConsoleOperator& console() { return console_; }

  private:
    ConsoleLines lines_;
    ConsoleOperator console_;
    FrameView view_;
    MainWindow window_;
    MemoryDisplay display_;
};

/// The frame around a verb that talks to the LCU: start lines in the status log, stopping signals that wait
/// to be asked for, and the closing lines when it goes.
class Session {
  public:
    Session(const Arguments& arguments, Terminal& terminal);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Searches for an LCU; false when none answered, and then standard error says why.
    [[nodiscard]] bool find();
    /// Asks for the mode "ACQUIRE": true when an LCU answered and a run may be made.
    [[nodiscard]] bool acquire();

    [[nodiscard]] Program& program() { return program_; }
    [[nodiscard]] const StopSignals& signals() const { return signals_; }

  private:
    [[nodiscard]] Shell shell();
    /// Runs a search while its red lines, which say why a port cannot be opened, are shown.
    void watchSearch(const std::function<void()>& search);

    Terminal& terminal_;
    StopSignals signals_;
    Program program_;
};

} // namespace tarvik
