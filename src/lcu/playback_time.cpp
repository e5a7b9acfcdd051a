#include "lcu/playback_time.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int longestSleepMs = 50;               // a click on stop or pause is heard so soon
constexpr std::int64_t yieldEveryMicros = 40000; // for the window, when there is nothing to wait for
constexpr int yieldEveryPasses = 100;
constexpr double mostLateSeconds = 1; // after a long halt of the machine the run does not rush on

} // namespace

void PlaybackTime::start() {
    ahead_ = 0;
    paused_ = false;
    passesSinceSleep_ = 0;
    measuredMicros_ = sleptMicros_ = clock_.tickMicros();
}

bool PlaybackTime::pass(double runSeconds, const std::function<bool()>& stopped) {
    ahead_ += runSeconds;
    for (;;) {
        if (stopped()) return false;
        measure();
        if (paused_) {
            sleepFor(longestSleepMs);
        } else if (ahead_ > 0) {
            const double ms = std::ceil(ahead_ / paceFactor(pace_) * 1000);
            sleepFor(static_cast<int>(std::min(ms, double{longestSleepMs})));
        } else {
            yieldWhenDue();
            return !stopped();
        }
    }
}

void PlaybackTime::setPace(PlaybackPace pace) {
    measure(); // what has passed, passed at the old one
    pace_ = pace;
}

void PlaybackTime::setPaused(bool paused) {
    measure();
    paused_ = paused;
}

/// Takes what has passed on the clock since it was last asked, as seconds of the run.
void PlaybackTime::measure() {
    const std::int64_t now = clock_.tickMicros();
    const double passed = static_cast<double>(now - measuredMicros_) * 1e-6;
    measuredMicros_ = now;
    const int factor = paceFactor(pace_);
    if (factor == 0 && !paused_) ahead_ = 0;
    if (!paused_) ahead_ = std::max(ahead_ - passed * factor, -mostLateSeconds * factor);
}

void PlaybackTime::sleepFor(int milliseconds) {
    sleep_(milliseconds);
    sleptMicros_ = clock_.tickMicros();
    passesSinceSleep_ = 0;
}

void PlaybackTime::yieldWhenDue() {
    const bool long_ = clock_.tickMicros() - sleptMicros_ >= yieldEveryMicros;
    if (++passesSinceSleep_ >= yieldEveryPasses || long_) sleepFor(1);
}

} // namespace tarvik
