// The machine's own clock.
#pragma once

#include "platform/clock.h"

#include <chrono>

namespace tarvik {

class SystemClock final : public Clock {
  public:
    [[nodiscard]] CivilTime now() const override;
    [[nodiscard]] std::int64_t tickMs() const override;
    [[nodiscard]] std::int64_t tickMicros() const override;
};

/// A moment in the zone of this machine, cut to whole milliseconds.
[[nodiscard]] CivilTime localTime(std::chrono::system_clock::time_point moment);

} // namespace tarvik
