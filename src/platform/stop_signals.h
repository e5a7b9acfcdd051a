// Ctrl-C as a question instead of an interruption: a run is asked to stop and closes in order.
#pragma once

#include <csignal>

namespace tarvik {

/// While it lives, SIGINT, SIGTERM and SIGHUP wait to be asked for. One that the program was started with as
/// ignored (nohup, a job in the background of a script) stays ignored.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    [[nodiscard]] bool arrived() const;

  private:
    sigset_t awaited_{};
    sigset_t before_{};
};

} // namespace tarvik
