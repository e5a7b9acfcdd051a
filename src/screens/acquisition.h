// The operator's hand on the LCU from the main screen: start and stop a run, set the depth, watch the depth
// while nothing else goes on.
#pragma once

#include "lcu/logging_run.h"
#include "program/program.h"
#include "screens/intro_screen.h"
#include "screens/link_gate.h"
#include "screens/screen_run_view.h"

#include <functional>
#include <memory>

namespace tarvik {

class Acquisition {
  public:
    Acquisition(Program& program, IntroScreen& screen, LinkGate& gate, RunViewParts parts);

    /// The start button: the run goes on until it ends; events are served meanwhile.
    void start();
    void stop();
    void setDepth(double metres);
    /// Once a second: the depth of a box that has nothing else to do.
    void watchDepth();
    /// The order and the buttons as settings and link are now.
    void show();

    /// An LCU answers on the open port.
    [[nodiscard]] bool boxIsThere() const;
    [[nodiscard]] bool running() const { return view_ != nullptr; }
    /// "Still to be chosen: a hole and a winch."; empty when nothing is missing.
    [[nodiscard]] std::string stillToChoose() const;
    /// The run that goes on or the last one; null before the first.
    [[nodiscard]] const RunState* run() const { return run_ ? &run_->state() : nullptr; }
    /// The closing steps of a run whose display has gone; it never goes on.
    void closeUnseen();
    /// Done once, after the run has ended.
    void whenEnded(std::function<void()> act) { whenEnded_ = std::move(act); }

  private:
    void runNow();
    void setDepthNow(double metres);
    [[nodiscard]] RunModules modulesWith(RunView& view);
    [[nodiscard]] std::optional<RunOrder> order();
    [[nodiscard]] double winchScaleFactor() const;
    [[nodiscard]] RunPanel& panel() { return screen_.side().run(); }

    Program& program_;
    IntroScreen& screen_;
    LinkGate& gate_;
    RunViewParts parts_;
    RunOrder order_;                      ///< of the run that goes on or the last one
    std::unique_ptr<ScreenRunView> view_; ///< while a run goes on
    std::unique_ptr<RunModules> modules_;
    std::unique_ptr<LoggingRun> run_;
    std::function<void()> whenEnded_;
    int unanswered_ = 0; ///< times in a row that the idle box has not told its depth
};

} // namespace tarvik
