// A clock that moves only when it is told to. A simulated port moves it in its sleeps, so that an hour of
// logging takes milliseconds and every test sees the same times.
#pragma once

#include "platform/clock.h"

namespace tarvik {

class VirtualClock final : public Clock {
  public:
    explicit VirtualClock(CivilTime start = {.year = 2006, .month = 3, .day = 13, .hour = 9})
        : start_(start) {}

    [[nodiscard]] CivilTime now() const override { return plusMilliseconds(start_, micros_ / 1000); }
    [[nodiscard]] std::int64_t tickMs() const override { return micros_ / 1000; }
    [[nodiscard]] std::int64_t tickMicros() const override { return micros_; }

    [[nodiscard]] std::int64_t micros() const { return micros_; }
    void advanceMicros(std::int64_t micros) { micros_ += micros; }
    void advanceMs(std::int64_t ms) { micros_ += ms * 1000; }

  private:
    CivilTime start_;
    std::int64_t micros_ = 0;
};

} // namespace tarvik
