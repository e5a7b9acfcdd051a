#include "lcu/link_watch.h"

namespace tarvik {

void LinkWatch::portGone() {
    if (state_ == State::good) {
        log_.red("Communications lost");
        operator_.notice(
            "Communications lost",
            "The serial port to the LCU has gone. Check the cable; logging goes on when it is back.",
            Icon::critical);
    }
    state_ = State::gone;
    lcu_.setLost(true);
    if (port_.reopen()) {
        state_ = State::backWithoutScans;
        waitingSince_ = clock_.tickMs();
    } else {
        port_.wait(retryEveryMs);
    }
}

void LinkWatch::silent() {
    if (state_ != State::backWithoutScans || clock_.tickMs() - waitingSince_ < streamAgainAfterMs) return;
    if (lcu_.LCU_Command(samplingCommand_) == LinkResult::good) lcu_.sendPlain("V");
    waitingSince_ = clock_.tickMs();
}

bool LinkWatch::scanCame() {
    if (std::exchange(state_, State::good) == State::good) return false;
    log_.blue("Communications re-established");
    return true;
}

} // namespace tarvik
