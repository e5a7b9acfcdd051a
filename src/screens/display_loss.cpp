#include "screens/display_loss.h"

#include <cstdlib>
#include <utility>

namespace tarvik {

namespace {

/// A handler of exit() gets no argument.
std::function<void()>& lastAct() {
    static std::function<void()> act;
    return act;
}

} // namespace

DisplayLoss::DisplayLoss(std::function<void()> act) {
    lastAct() = std::move(act);
    std::atexit([] {
        const auto due = std::exchange(lastAct(), {});
        if (!due) return;
        due();
        std::_Exit(EXIT_FAILURE); // the toolkit would take down a screen that is no more, and crash
    });
}

DisplayLoss::~DisplayLoss() {
    lastAct() = {};
}

} // namespace tarvik
