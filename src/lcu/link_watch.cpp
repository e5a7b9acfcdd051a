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
    if (openAgain()) {
        state_ = State::backWithoutScans;
        waitingSince_ = clock_.tickMs();
    } else {
        serial_.ComSleepMS(link_.port, retryEveryMs);
    }
}

void LinkWatch::silent() {
    if (state_ != State::backWithoutScans || clock_.tickMs() - waitingSince_ < streamAgainAfterMs) return;
    waitingSince_ = clock_.tickMs();
    if (lcu_.LCU_Command(samplingCommand_) == LinkResult::good) lcu_.sendPlain("V");
    waitingSince_ = clock_.tickMs();
}

bool LinkWatch::scanCame() {
    if (state_ == State::good) return false;
    state_ = State::good;
    log_.blue("Communications re-established");
    return true;
}

/// Without a line in the log for every try: the operator was told once.
bool LinkWatch::openAgain() {
    serial_.ComClose(link_.port);
    if (serial_.ComOpen("COM", link_.port, link_.baud, 8, 1, 1, 8192, 8192) != 1) return false;
    serial_.ComSetFlow(link_.port, 2);
    serial_.ComSetYield(link_.port, 1);
    return true;
}

} // namespace tarvik
