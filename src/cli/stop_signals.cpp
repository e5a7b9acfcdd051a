#include "cli/stop_signals.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace tarvik {

namespace {

constexpr std::array<int, 3> stopping{SIGINT, SIGTERM, SIGHUP};

sigset_t stoppingSet() {
    sigset_t set{};
    sigemptyset(&set);
    for (const int signal : stopping) sigaddset(&set, signal);
    return set;
}

} // namespace

StopSignals::StopSignals() {
    const sigset_t set = stoppingSet();
    sigprocmask(SIG_BLOCK, &set, &before_);
}

/// What arrived has been obeyed by then; left pending it would end the program before its last lines.
StopSignals::~StopSignals() {
    const sigset_t set = stoppingSet();
    const timespec atOnce{};
    while (sigtimedwait(&set, nullptr, &atOnce) > 0) {
    }
    sigprocmask(SIG_SETMASK, &before_, nullptr);
}

bool StopSignals::arrived() const {
    sigset_t pending{};
    sigpending(&pending);
    return std::ranges::any_of(stopping, [&](int signal) { return sigismember(&pending, signal) == 1; });
}

} // namespace tarvik
