// The loop of a logging run: one pass for each scan, until the operator stops, the end is reached or a fault
// ends it. Allocates nothing per scan.
#pragma once

#include "lcu/link_watch.h"
#include "lcu/run_context.h"
#include "lcu/scan_reader.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

class ScanLoop {
  public:
    ScanLoop(RunModules& modules, RunState& run, LinkWatch& watch);

    /// Returns when the run is over; the closing steps are the caller's.
    void run();

  private:
    void pass();
    void onScan(std::span<const std::uint8_t> bytes);
    void onSilence();
    void onTimeout(const ScanRead& read);
    void onOverflow(const ScanRead& read);
    void onPortGone();

    [[nodiscard]] bool depthIsBelievable();
    [[nodiscard]] bool channelsAreExpected();
    [[nodiscard]] bool currentIsSafe();
    void measureSpeed();
    void showScan();
    void keep();
    void store(double seconds);
    void explainNotKept();
    void say(KeepingState state, std::string_view why);
    void showProgress();

    RunModules& modules_;
    RunState& run_;
    LinkWatch& watch_;
    ScanReader scanReader_;
    ScanDecoder decoder_;

    bool ended_ = false;
    bool backFromLoss_ = false;   ///< the next decoded depth is compared with the last one before the loss
    int unexpectedChannels_ = -1; ///< reported last; a stretch of such scans is reported once
    double previousDepth_ = 0;    ///< metres, of the previous decoded scan
    bool hasPreviousDepth_ = false;
    double metresPerMinute_ = 0;
    std::int64_t lastByteTick_ = 0;
    std::int64_t shownProgressTick_ = 0;
    KeepingState shownState_ = KeepingState::kept;
    std::string stateSince_;
};

} // namespace tarvik
