#include "lcu/link_watch.h"

#include "base/number_picture.h"

namespace tarvik {

namespace {

constexpr std::string_view lostTitle = "Communications lost";
constexpr std::string_view backTitle = "Communications re-established";

} // namespace

void LinkWatch::portGone() {
    if (state_ == State::good) {
        lostSince_ = clock_.tickMs();
        streamStarted_ = false;
        log_.red(lostTitle);
        operator_.notice(
            lostTitle,
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
    if (lcu_.LCU_Command(samplingCommand_) == LinkResult::good) {
        lcu_.sendPlain("V");
        streamStarted_ = true;
    }
    waitingSince_ = clock_.tickMs();
}

LinkWatch::Back LinkWatch::scanCame() {
    if (std::exchange(state_, State::good) == State::good) return Back::no;
    const Back back = streamStarted_ ? Back::newStream : Back::sameStream;
    log_.blue(backTitle);
    sayBack(back);
    return back;
}

/// A box that had lost its power has forgotten how the tool was prepared; only the start of a run does that.
void LinkWatch::sayBack(Back back) {
    const auto seconds = static_cast<double>(clock_.tickMs() - lostSince_) / 1000.0;
    std::string text =
        "Nothing came for " + formatPicture(seconds, "##0") + " seconds: those scans are missing.";
    if (back == Back::newStream)
        text += " The LCU was told to send again. If it had lost its power, stop and append: the start of a "
                "run prepares the tool afresh.";
    operator_.noticeIsOver(lostTitle);
    operator_.notice(backTitle, text, back == Back::newStream ? Icon::exclamation : Icon::information);
}

} // namespace tarvik
