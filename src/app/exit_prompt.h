// What happens in `frmExit`, the exit confirmation: it beeps, its label flashes, and its answer decides
// whether the next look at the exit-confirmation flag lets the program end.
#pragma once

#include "app/operator_side.h"
#include "app/program_state.h"

namespace tarvik {

class ExitPrompt {
  public:
    static constexpr int smallPoints = 12;
    static constexpr int largePoints = 14;

    ExitPrompt(ProgramState& state, OperatorSide& operatorSide) : state_(state), operator_(operatorSide) {}

    void opened() { operator_.beep(); }

    /// One tick of the timer; returns the label's font size in points.
    int flash() {
        points_ = points_ == smallPoints ? largePoints : smallPoints;
        if (points_ == smallPoints) operator_.beep();
        return points_;
    }

    void comyes() { state_.exitConfirmation = false; }
    void comno() { state_.exitConfirmation = true; }

  private:
    ProgramState& state_;
    OperatorSide& operator_;
    int points_ = smallPoints;
};

} // namespace tarvik
