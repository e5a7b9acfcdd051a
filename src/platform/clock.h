// Time as the operating system supplies it: the calendar for dates and log lines, the tick count for
// time-outs.
#pragma once

#include "base/civil_time.h"

#include <cstdint>

namespace tarvik {

class Clock {
  public:
    virtual ~Clock() = default;

    /// Local calendar time.
    [[nodiscard]] virtual CivilTime now() const = 0;

    /// Milliseconds since some fixed moment; never runs backwards, does not follow changes of the calendar.
    [[nodiscard]] virtual std::int64_t tickMs() const = 0;
    /// The same count, finer where the clock can tell.
    [[nodiscard]] virtual std::int64_t tickMicros() const { return tickMs() * 1000; }
};

} // namespace tarvik
