// Keeps what a routine reports to the error log.
#pragma once

#include "app/error_trap.h"

#include <vector>

namespace tarvik {

class KeptErrors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { kept.push_back(error); }

    std::vector<ErrorReport> kept;
};

} // namespace tarvik
