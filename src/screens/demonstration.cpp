#include "screens/demonstration.h"

#include "screens/qt_text.h"

#include <utility>

namespace tarvik {

Demonstration::Demonstration(Program& program, IntroScreen& screen, LinkGate& gate, RunViewParts parts)
    : program_(program), screen_(screen), gate_(gate), parts_(std::move(parts)) {}

void Demonstration::choose(const frmDemo::Choice& choice) {
    if (running()) return;
    choice_ = choice;
    playback_.reset(); // what was played before is over
    show();
}

void Demonstration::start() {
    gate_.pass([this] { playNow(); });
}

void Demonstration::pauseOrGoOn() {
    if (!running() || view_->stopping()) return;
    playback_->setPaused(!playback_->paused());
    panel().setState(playback_->paused() ? DemoPanel::State::paused : DemoPanel::State::playing);
    InstrumentPanel& instrument = screen_.side().instrument();
    if (playback_->paused())
        instrument.showIdle("Paused");
    else
        instrument.showKeeping(KeepingState::notRecording, playbackNote);
}

void Demonstration::stop() {
    if (!running()) return;
    view_->requestStop();
    panel().setState(DemoPanel::State::stopping);
}

void Demonstration::setPace(PlaybackPace pace) {
    choice_.pace = pace;
    if (playback_) playback_->setPace(pace);
}

void Demonstration::show() {
    if (program_.state.mode != programMode::demo) return leave();
    if (!program_.state.searching) screen_.status().showText("Demonstration");
    screen_.side().showLink(program_.link);
    panel().showRun(qt(choice_.file.filename().string()), qt(choice_.file.string()));
    panel().showPace(choice_.pace);
    if (running()) return;
    if (!playback_) screen_.side().instrument().clear(); // of an earlier run
    panel().setState(choice_.file.empty() ? DemoPanel::State::noRun : DemoPanel::State::ready);
    showPosition();
    screen_.side().instrument().showIdle(choice_.file.empty() ? "Choose a run to play" : "Ready to play");
}

/// What was played must not be taken for what a tool sends.
void Demonstration::leave() {
    if (!playback_ || running()) return;
    playback_.reset();
    screen_.side().instrument().clear();
}

void Demonstration::showPosition() {
    const auto position = playback_ ? playback_->position() : RunPlayback::Position{};
    panel().showPosition(position.played, position.scans);
}

/// The same display as of a run that is logged; the limit of the current belongs to another tool.
RunViewParts Demonstration::demoParts() {
    RunViewParts parts = parts_;
    parts.currentLimit = [] { return 0; };
    parts.shown = [this] {
        showPosition();
        parts_.shown();
    };
    return parts;
}

void Demonstration::playNow() {
    if (running() || choice_.file.empty() || program_.state.mode != programMode::demo) return;
    Program& p = program_;
    screen_.side().instrument().clear();
    screen_.notices().clear();
    view_ = std::make_unique<ScreenRunView>(screen_, p.clock, demoParts());
    playback_ = std::make_unique<RunPlayback>(PlaybackModules{p.errors, p.log, p.frame.operatorSide, *view_,
                                                              p.state, p.link, p.clock, p.files, p.runReader,
                                                              [&p](int ms) { p.hooks.sleep(ms); }});
    playback_->setPace(choice_.pace);
    panel().setState(DemoPanel::State::playing);
    const RunResult result = playback_->comstartlogging(choice_.file);
    view_.reset();
    if (result == RunResult::notStarted) screen_.side().instrument().clear();
    show();
    gate_.exchangeEnded();
    if (auto act = std::exchange(whenEnded_, {})) act();
}

} // namespace tarvik
