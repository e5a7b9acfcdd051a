// How often something that is shown without blocking has come, and since when.
#pragma once

#include "base/civil_time.h"

#include <string>

namespace tarvik {

class RepeatCount {
  public:
    void add(const CivilTime& now) {
        if (times_++ == 0) since_ = now;
    }
    void clear() { times_ = 0; }

    /// "at 14:03", from the second time on "3 times since 14:03".
    [[nodiscard]] std::string text() const {
        const std::string since = formatDate(since_, "hh:mm");
        return times_ <= 1 ? "at " + since : std::to_string(times_) + " times since " + since;
    }

  private:
    int times_ = 0;
    CivilTime since_;
};

} // namespace tarvik
