// The loop of a logging run: one pass for each scan, until the operator stops, the end is reached or a fault
// ends it. Allocates nothing per scan but what the file system needs.
#pragma once

#include "lcu/link_watch.h"
#include "lcu/run_context.h"
#include "lcu/run_speed.h"
#include "lcu/scan_reader.h"

#include <cstdint>
#include <optional>
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

    // Whether a decoded scan may count; each says why not.
    [[nodiscard]] bool channelsAreExpected();
    [[nodiscard]] bool depthIsBelievable();
    [[nodiscard]] bool currentIsSafe();
    void endOfInterval();

    void showScan();
    void keep();
    void store(KeptScanView& shown);
    void sayTooDeep();
    void explainNotKept();
    void say(KeepingState state, std::string_view why);
    void logWriting(KeepingState before, KeepingState now, std::string_view why);
    void showProgress();
    void end(std::string_view title, std::string_view why);
    [[nodiscard]] double speedInFileUnits() const;
    [[nodiscard]] std::string depthText(double metres) const;

    RunModules& modules_;
    RunState& run_;
    LinkWatch& watch_;
    ScanReader scanReader_;
    Deviation deviation_;
    ScanDecoder decoder_;
    RunSpeed speed_;

    bool ended_ = false;
    std::int32_t withoutValues_ = 0;        ///< scans still to come that a fresh stream has no values in
    bool backFromLoss_ = false;             ///< the next depth is compared with the last one before the loss
    std::optional<int> unexpectedChannels_; ///< said last: a stretch of such scans is one fault
    std::int64_t lastByteTick_ = 0;
    std::int64_t shownProgressTick_ = 0;
    KeepingState shownState_ = KeepingState::kept;
};

} // namespace tarvik
