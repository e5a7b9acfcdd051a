// The time of a run that is played: the run's own seconds, passed at a pace that can be changed and halted at
// any moment.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <functional>

namespace tarvik {

enum class PlaybackPace { original, twice, tenfold, fastest };

/// How many times as fast as it was logged; 0 for as fast as it goes.
[[nodiscard]] constexpr int paceFactor(PlaybackPace pace) {
    switch (pace) {
    case PlaybackPace::original:
        return 1;
    case PlaybackPace::twice:
        return 2;
    case PlaybackPace::tenfold:
        return 10;
    case PlaybackPace::fastest:
        break;
    }
    return 0;
}

class PlaybackTime {
  public:
    /// `sleep` waits so many milliseconds and lets the window live meanwhile. `clock` outlives this.
    PlaybackTime(const Clock& clock, std::function<void(int milliseconds)> sleep)
        : clock_(clock), sleep_(std::move(sleep)) {}

    void start();
    /// Waits until so many more seconds of the run have passed; false when `stopped` says so, which is asked
    /// between short sleeps. What one call waits too long the next ones wait less, up to a second.
    bool pass(double runSeconds, const std::function<bool()>& stopped);

    void setPace(PlaybackPace pace);
    [[nodiscard]] PlaybackPace pace() const { return pace_; }
    void setPaused(bool paused);
    [[nodiscard]] bool paused() const { return paused_; }

  private:
    void measure();
    void sleepFor(int milliseconds);
    void yieldWhenDue();

    const Clock& clock_;
    std::function<void(int)> sleep_;
    PlaybackPace pace_ = PlaybackPace::original;
    bool paused_ = false;
    double ahead_ = 0; ///< seconds of the run that are still to be waited; below 0: late
    std::int64_t measuredMicros_ = 0;
    std::int64_t sleptMicros_ = 0;
    int passesSinceSleep_ = 0;
};

} // namespace tarvik
