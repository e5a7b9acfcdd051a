#include "platform/stop_signals.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace tarvik {

namespace {

constexpr std::array<int, 3> stopping{SIGINT, SIGTERM, SIGHUP};

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

/// An ignored signal must not be blocked: it would wait to be asked for all the same.
StopSignals::StopSignals() {
    sigemptyset(&awaited_);
    for (const int signal : stopping) {
        if (!isIgnored(signal)) sigaddset(&awaited_, signal);
    }
    sigprocmask(SIG_BLOCK, &awaited_, &before_);
}

/// What arrived has been obeyed by then; left pending it would end the program before its last lines.
StopSignals::~StopSignals() {
    const timespec atOnce{};
    while (sigtimedwait(&awaited_, nullptr, &atOnce) > 0) {
    }
    sigprocmask(SIG_SETMASK, &before_, nullptr);
}

bool StopSignals::arrived() const {
    sigset_t pending{};
    sigpending(&pending);
    return std::ranges::any_of(stopping, [&](int signal) {
        return sigismember(&awaited_, signal) == 1 && sigismember(&pending, signal) == 1;
    });
}

} // namespace tarvik
