// The demonstration on the main screen: a run on file goes through the same display as a run that is logged.
#pragma once

#include "lcu/run_playback.h"
#include "program/program.h"
#include "screens/demo_panel.h"
#include "screens/frm_demo.h"
#include "screens/intro_screen.h"
#include "screens/link_gate.h"
#include "screens/screen_run_view.h"

#include <functional>
#include <memory>

namespace tarvik {

class Demonstration {
  public:
    Demonstration(Program& program, IntroScreen& screen, LinkGate& gate, RunViewParts parts);

    /// What `frmDemo` starts with, and what it chose.
    [[nodiscard]] const frmDemo::Choice& choice() const { return choice_; }
    void choose(const frmDemo::Choice& choice);
    /// Plays the chosen run from its beginning; events are served meanwhile.
    void start();
    void pauseOrGoOn();
    void stop();
    void setPace(PlaybackPace pace);
    /// The panel, the instrument and the lamps, when the mode is "DEMO".
    void show();

    [[nodiscard]] bool running() const { return view_ != nullptr; }
    /// The run that is played or was played last; null before the first.
    [[nodiscard]] const RunState* run() const { return playback_ ? &playback_->state() : nullptr; }
    /// Done once, after it has ended.
    void whenEnded(std::function<void()> act) { whenEnded_ = std::move(act); }

  private:
    void playNow();
    void leave();
    void showPosition();
    [[nodiscard]] RunViewParts demoParts();
    [[nodiscard]] DemoPanel& panel() { return screen_.side().demo(); }

    Program& program_;
    IntroScreen& screen_;
    LinkGate& gate_;
    RunViewParts parts_;
    frmDemo::Choice choice_;
    std::unique_ptr<ScreenRunView> view_; ///< while it is played
    std::unique_ptr<RunPlayback> playback_;
    std::function<void()> whenEnded_;
};

} // namespace tarvik
