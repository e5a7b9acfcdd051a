// Keeps what the operator asks for out of an exchange with the LCU: events are served while a port waits, so
// a click can come in the middle of one. It is then done when the exchange has ended; while a search or a run
// goes on it is dropped.
#pragma once

#include "app/link_state.h"
#include "app/program_state.h"

#include <QTimer>

#include <functional>
#include <utility>

namespace tarvik {

class LinkGate {
  public:
    /// Both outlive the gate.
    LinkGate(const LinkState& link, const ProgramState& state) : link_(link), state_(state) {}

    [[nodiscard]] bool open() const { return !link_.busy && !state_.searching && !state_.logging; }

    /// One thing waits at most: the last click counts.
    void pass(std::function<void()> act) {
        if (open()) return act();
        if (!state_.searching && !state_.logging) waiting_ = std::move(act);
    }
    /// Not from within the exchange that has just ended.
    void exchangeEnded() {
        if (auto act = std::exchange(waiting_, {})) QTimer::singleShot(0, std::move(act));
    }

  private:
    const LinkState& link_;
    const ProgramState& state_;
    std::function<void()> waiting_;
};

} // namespace tarvik
