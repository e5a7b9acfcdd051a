#include "lcu/scan_loop.h"

#include "base/number_picture.h"
#include "lcu/overflow_report.h"

#include <cmath>

namespace tarvik {

namespace {

constexpr double farthestBelievableJump = 5.0; // metres, across a loss of the line
constexpr std::int64_t silenceShownAfterMs = 2000;
constexpr std::int64_t progressEveryMs = 500;
constexpr std::int32_t firstScansWithoutValues = 2;
constexpr double countsPerMinute = 10000.0 * 60; // time counts of 0.1 ms

} // namespace

ScanLoop::ScanLoop(RunModules& modules, RunState& run, LinkWatch& watch)
    : modules_(modules),
      run_(run),
      watch_(watch),
      scanReader_(modules.serial, modules.clock, modules.link),
      decoder_(modules.errors, modules.log, run.scanSetup, run.scan) {}

void ScanLoop::run() {
    lastByteTick_ = modules_.clock.tickMs();
    while (!ended_ && !modules_.view.stopRequested()) {
        pass();
        showProgress();
    }
}

void ScanLoop::pass() {
    const ScanRead read = scanReader_.read();
    if (read.kind != ScanRead::Kind::none) lastByteTick_ = modules_.clock.tickMs();
    switch (read.kind) {
    case ScanRead::Kind::scan:
        return onScan(read.bytes);
    case ScanRead::Kind::none:
        return onSilence();
    case ScanRead::Kind::timeout:
        return onTimeout(read);
    case ScanRead::Kind::overflow1:
    case ScanRead::Kind::overflow2:
        return onOverflow(read);
    case ScanRead::Kind::portGone:
        return onPortGone();
    }
}

void ScanLoop::onScan(std::span<const std::uint8_t> bytes) {
    ScanState& scan = run_.scan;
    if (watch_.scanCame()) {
        scan.lastSampledDepth = noDepthSampled;
        backFromLoss_ = true;
    }
    ++scan.scans;
    decoder_.LCU_GetValues(bytes);
    if (scan.current.status == -1 || scan.scans <= firstScansWithoutValues) return;
    if (!channelsAreExpected() || !depthIsBelievable()) return;
    run_.tally.sawDepth(scan.current.depth);
    measureSpeed();
    showScan();
    if (!currentIsSafe()) return;
    if (!scan.flags.inRange || !scan.flags.advance) return explainNotKept();
    keep();
    if (scan.flags.endReached) ended_ = true;
}

void ScanLoop::onSilence() {
    watch_.silent();
    const std::int64_t silentMs = modules_.clock.tickMs() - lastByteTick_;
    if (watch_.lost() || silentMs < silenceShownAfterMs) return;
    say(KeepingState::noScans, "the LCU sends nothing");
}

void ScanLoop::onTimeout(const ScanRead& read) {
    run_.scan.current.status = -1;
    modules_.log.red("Time-out waiting for remainder of chars in buffer");
    modules_.log.red("Elapsed waiting time " + formatPicture(read.waitedSeconds, "##0.0"));
}

void ScanLoop::onOverflow(const ScanRead& read) {
    run_.scan.current.status = -1;
    const int type = read.kind == ScanRead::Kind::overflow1 ? 1 : 2;
    modules_.log.red("Buffer overflow type " + std::to_string(type) + " acquiring LCU data");
    modules_.log.red("Expected " + std::to_string(read.expected) + " chars.  Rec'd " +
                     std::to_string(read.received) + " chars");
    const double speed = fromMetres(metresPerMinute_, run_.header.setup.units);
    modules_.errorLog.reportOverflow(modules_.errors.place(), overflowReport(read, run_.scanSetup, speed));
}

void ScanLoop::onPortGone() {
    run_.scan.current.status = -1;
    watch_.portGone();
    say(KeepingState::communicationsLost, "the serial port has gone");
}

/// A box that lost power counts from a depth of its own: a jump across a loss of the line would file every
/// value under a wrong depth.
bool ScanLoop::depthIsBelievable() {
    const double depth = run_.scan.current.depth;
    if (backFromLoss_ && hasPreviousDepth_ && std::abs(depth - previousDepth_) > farthestBelievableJump) {
        const auto text = [&](double metres) {
            return formatPicture(fromMetres(metres, run_.header.setup.units), "###0.00");
        };
        modules_.log.red("Depth " + text(depth) +
                         " after the loss of communications is not believed, it was " + text(previousDepth_));
        modules_.operatorSide.notice("Depth not believed",
                                     "After the loss of communications the LCU reports a depth of " +
                                         text(depth) + ", it was " + text(previousDepth_) +
                                         ". The run has been ended. Set the depth afresh and append.",
                                     Icon::critical);
        ended_ = true;
        return false;
    }
    backFromLoss_ = false;
    return true;
}

bool ScanLoop::channelsAreExpected() {
    const int carried = run_.scan.carriedChannels;
    if (carried == run_.scanSetup.channels) {
        unexpectedChannels_ = -1;
        return true;
    }
    if (carried != unexpectedChannels_) {
        modules_.log.red("Unexpected number channels of data from LCU = " + std::to_string(carried));
        modules_.log.red("Contact BRENNA - possible problems with Tool/Winch file");
        unexpectedChannels_ = carried;
    }
    return false;
}

bool ScanLoop::currentIsSafe() {
    const int limit = modules_.equipment.currentTool().record.get(tool::maximumCurrent);
    const float current = run_.scan.current.toolCurrent;
    if (limit <= 0 || current <= static_cast<float>(limit)) return true;
    modules_.log.red("Tool current was " + shortestNumber(current) + " ma");
    modules_.log.red("Exceeds factory recommended maximum of " + std::to_string(limit) + " ma");
    modules_.log.red("Tool shut down.");
    modules_.operatorSide.notice("Tool shut down",
                                 "Tool current was " + shortestNumber(current) + " ma, the maximum is " +
                                     std::to_string(limit) + " ma. The tool is powered down.",
                                 Icon::critical);
    ended_ = true;
    return false;
}

/// The change of depth since the previous decoded scan over the scan's time; without sign.
void ScanLoop::measureSpeed() {
    const CurrentScan& scan = run_.scan.current;
    const bool measurable = hasPreviousDepth_ && scan.scanTime != 0;
    metresPerMinute_ =
        measurable ? std::abs(scan.depth - previousDepth_) * countsPerMinute / scan.scanTime : 0;
    previousDepth_ = scan.depth;
    hasPreviousDepth_ = true;
}

void ScanLoop::showScan() {
    const CurrentScan& scan = run_.scan.current;
    modules_.view.LCU_ShowLCUCurrent(scan.toolCurrent, scan.toolVoltage);
    if (modelNamed(modules_.link.model) == lcu4)
        modules_.view.LCU_ShowDepthSpeed(scan.depth, metresPerMinute_);
}

void ScanLoop::keep() {
    const double seconds = run_.scan.current.elapsedTime * 1e-4;
    ++run_.tally.kept;
    run_.ring.add(run_.scan.current, seconds);
    store(seconds);
}

void ScanLoop::store(double seconds) {
    const CurrentScan& scan = run_.scan.current;
    KeptScanView shown{.number = run_.tally.kept,
                       .depth = scan.depth,
                       .speed = metresPerMinute_,
                       .seconds = seconds,
                       .scan = &scan,
                       .savedDepth = {}};
    if (!run_.fileReady || !modules_.view.recording()) {
        modules_.view.scanKept(shown);
        return say(KeepingState::notRecording, "recording is off");
    }
    const auto channels = static_cast<std::size_t>(scan.channelCount);
    const std::string saved =
        modules_.writer.LCU_SaveScan({.depth = scan.depth,
                                      .scanTime = scan.scanTime,
                                      .speed = fromMetres(metresPerMinute_, run_.header.setup.units),
                                      .channels = std::span(scan.calibrated).subspan(1, channels),
                                      .toolCurrent = scan.toolCurrent,
                                      .toolVoltage = scan.toolVoltage,
                                      .magneticMarker = run_.header.setup.magneticMarker});
    shown.savedDepth = saved;
    modules_.view.scanKept(shown);
    if (saved.empty())
        return say(KeepingState::writeFailed, "the scan could not be written, see the error log");
    run_.tally.wroteDepth(scan.depth);
    say(KeepingState::kept, {});
}

/// A scan between two samples is nothing to speak of; one that can never become a sample is.
void ScanLoop::explainNotKept() {
    const ScanState& scan = run_.scan;
    if (!scan.flags.inRange)
        return say(KeepingState::outOfRange, "the depth is outside the limits of the run");
    if (run_.header.setup.sampling != Sampling::depth || scan.lastSampledDepth == noDepthSampled) return;
    const double moved = std::abs(scan.current.depth - static_cast<double>(scan.lastSampledDepth));
    if (moved < 1.0) return;
    say(KeepingState::depthJump, "the depth has moved by 1 m or more from one sample to the next");
}

void ScanLoop::say(KeepingState state, std::string_view why) {
    if (state == shownState_) return;
    shownState_ = state;
    if (state == KeepingState::kept) return modules_.view.keepingState(state, {});
    const std::string since = formatDate(modules_.clock.now(), "hh:mm");
    modules_.view.keepingState(state, "since " + since + ": " + std::string(why));
}

void ScanLoop::showProgress() {
    const std::int64_t now = modules_.clock.tickMs();
    if (now - shownProgressTick_ < progressEveryMs) return;
    shownProgressTick_ = now;
    const double minutes = static_cast<double>(now - run_.startTick) / 60000.0;
    modules_.view.LCU_ShowLoggingProgress(
        {.elapsedMinutes = minutes,
         .remainingMinutes = remainingMinutes(run_.header.setup, run_.scan.current.depth, metresPerMinute_),
         .ended = false,
         .endTime = {}});
}

} // namespace tarvik
