#include "lcu/scan_loop.h"

#include "base/number_picture.h"
#include "lcu/overflow_report.h"

#include <cmath>
#include <limits>
#include <utility>

namespace tarvik {

namespace {

constexpr double farthestBelievableJump = 5.0; // metres, across a loss of the line
constexpr double jump = 1.0;                   // metres: the decoder takes no sample from here on
constexpr std::int64_t silenceShownAfterMs = 2000;
constexpr std::int64_t progressEveryMs = 500;
constexpr std::int32_t firstScansWithoutValues = 2;
constexpr double secondsPerCount = 1e-4;

/// By depth the box sends a scan at every interval: a longer way has scans missing in it.
double mostBetweenScans(const RunSetup& setup, double modelFactor) {
    constexpr double resolution = 0.02; // metres: a counter of whole centimetres, at either end
    if (setup.sampling == Sampling::time) return std::numeric_limits<double>::infinity();
    const double winchScale = setup.winchDepthFactor / modelFactor;
    return 1.5 * setup.interval / 100 * winchScale + resolution;
}

} // namespace

ScanLoop::ScanLoop(RunModules& modules, RunState& run, LinkWatch& watch)
    : modules_(modules),
      run_(run),
      watch_(watch),
      scanReader_(modules.serial, modules.clock, modules.link),
      deviation_(run.scanSetup.run, run.way),
      decoder_(modules.errors, modules.log, run.scanSetup, run.scan, &deviation_),
      speed_(mostBetweenScans(run.header.setup, modules.link.modelFactor)) {}

void ScanLoop::run() {
    lastByteTick_ = modules_.clock.tickMs();
    while (!ended_ && modules_.state.logging && !modules_.view.stopRequested()) {
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

// ---- What a pass can meet.

void ScanLoop::onScan(std::span<const std::uint8_t> bytes) {
    ScanState& scan = run_.scan;
    modules_.lcu.setLost(false);
    if (const LinkWatch::Back back = watch_.scanCame(); back != LinkWatch::Back::no) {
        scan.lastSampledDepth = noDepthSampled;
        backFromLoss_ = true;
        withoutValues_ = back == LinkWatch::Back::newStream ? firstScansWithoutValues : 0;
    }
    ++scan.scans;
    if (withoutValues_ > 0) return void(--withoutValues_);
    decoder_.LCU_GetValues(bytes);
    if (scan.current.status == -1) return speed_.interrupt();
    if (scan.scans <= firstScansWithoutValues) return;
    if (!channelsAreExpected() || !depthIsBelievable()) return;
    run_.tally.saw(scan.current.depth);
    speed_.measure(scan.current.depth, scan.current.scanTime);
    showScan();
    if (!currentIsSafe()) return;
    if (!scan.flags.inRange || !scan.flags.advance) return explainNotKept();
    keep();
    if (scan.flags.endReached) endOfInterval();
}

void ScanLoop::onSilence() {
    watch_.silent();
    const RunSetup& setup = run_.header.setup;
    const bool byTime = setup.sampling == Sampling::time;
    const std::int64_t silentMs = modules_.clock.tickMs() - lastByteTick_;
    const auto mayBeSilentMs =
        silenceShownAfterMs + static_cast<std::int64_t>(byTime ? setup.interval * 1000 : 0);
    if (watch_.lost() || silentMs < mayBeSilentMs) return;
    const bool up = setup.direction == Direction::up;
    say(KeepingState::noScans, byTime ? "the LCU sends nothing"
                               : up   ? "the LCU sends nothing: the winch stands or runs down"
                                      : "the LCU sends nothing: the winch stands or runs up");
    if (!byTime) return; // a standing winch is as silent
    modules_.lcu.setLost(true);
    speed_.interrupt();
}

void ScanLoop::onTimeout(const ScanRead& read) {
    run_.scan.current.status = -1;
    speed_.interrupt();
    modules_.log.red("Time-out waiting for remainder of chars in buffer");
    modules_.log.red("Elapsed waiting time " + formatPicture(read.waitedSeconds, "##0.0"));
}

void ScanLoop::onOverflow(const ScanRead& read) {
    run_.scan.current.status = -1;
    speed_.interrupt();
    const int type = read.kind == ScanRead::Kind::overflow1 ? 1 : 2;
    modules_.log.red("Buffer overflow type " + std::to_string(type) + " acquiring LCU data");
    modules_.log.red("Expected " + std::to_string(read.expected) + " chars.  Rec'd " +
                     std::to_string(read.received) + " chars");
    modules_.errorLog.reportOverflow(modules_.errors.place(),
                                     overflowReport(read, run_.scanSetup, speedInFileUnits()));
}

void ScanLoop::onPortGone() {
    run_.scan.current.status = -1;
    speed_.interrupt();
    watch_.portGone();
    say(KeepingState::communicationsLost, "the serial port has gone");
}

// ---- Whether a decoded scan may count.

/// Such a scan may be no scan at all: its depth counts for the next speed only if the tool can be there.
bool ScanLoop::channelsAreExpected() {
    const int carried = run_.scan.carriedChannels;
    if (carried == run_.scanSetup.channels) {
        unexpectedChannels_.reset();
        return true;
    }
    if (carried != unexpectedChannels_) {
        modules_.log.red("Unexpected number channels of data from LCU = " + std::to_string(carried));
        modules_.log.red("Contact BRENNA - possible problems with Tool/Winch file");
        unexpectedChannels_ = carried;
    }
    const CurrentScan& scan = run_.scan.current;
    if (speed_.movedTo(scan.depth) < jump) speed_.measure(scan.depth, scan.scanTime);
    say(KeepingState::otherChannels, "the scans carry another number of channels than the tool has");
    return false;
}

/// A box that lost power counts from a depth of its own: a jump across a loss of the line would file every
/// value under a wrong depth.
bool ScanLoop::depthIsBelievable() {
    const double depth = run_.scan.current.depth;
    if (!std::exchange(backFromLoss_, false) || speed_.movedTo(depth) <= farthestBelievableJump) return true;
    const std::string now = depthText(depth);
    const std::string before = depthText(speed_.depth());
    modules_.log.red("Depth " + now + " after the loss of communications is not believed, it was " + before);
    end("Depth not believed", "After the loss of communications the LCU reports a depth of " + now +
                                  ", it was " + before +
                                  ". The run has been ended. Set the depth afresh and append.");
    return false;
}

bool ScanLoop::currentIsSafe() {
    const int limit = modules_.equipment.currentTool().record.get(tool::maximumCurrent);
    const float current = run_.scan.current.toolCurrent;
    if (limit <= 0 || current <= static_cast<float>(limit)) return true;
    const std::string value = shortestNumber(current);
    const std::string maximum = std::to_string(limit);
    modules_.log.red("Tool current was " + value + " ma");
    modules_.log.red("Exceeds factory recommended maximum of " + maximum + " ma");
    modules_.log.red("Tool shut down.");
    end("Tool shut down", "Tool current was " + value + " ma, the factory recommended maximum is " + maximum +
                              " ma. The tool is powered down.");
    return false;
}

/// The program does not drive the winch: whoever does has to be told.
void ScanLoop::endOfInterval() {
    const RunSetup& setup = run_.header.setup;
    const double last = setup.direction == Direction::up ? setup.topDepth : setup.bottomDepth;
    const std::string reached =
        "End of the interval to " + depthText(last) + " reached at " + depthText(run_.scan.current.depth);
    modules_.log.blue(reached);
    end("End of the interval", reached + ". The run has been ended. Stop the winch.");
}

// ---- Keeping.

void ScanLoop::keep() {
    const CurrentScan& scan = run_.scan.current;
    KeptScanView shown{.number = ++run_.tally.kept,
                       .depth = scan.depth,
                       .speed = speed_.metresPerMinute(),
                       .seconds = scan.elapsedTime * secondsPerCount,
                       .scan = &scan,
                       .savedDepth = {}};
    run_.ring.add({scan.depth, shown.seconds, scan.calibrated});
    if (!run_.fileReady) {
        say(KeepingState::notRecording, "the run was started without a file");
    } else if (!modules_.view.recording()) {
        say(KeepingState::notRecording, "recording is off");
    } else {
        return store(shown);
    }
    modules_.view.scanKept(shown);
}

void ScanLoop::store(KeptScanView& shown) {
    const CurrentScan& scan = *shown.scan;
    const std::string saved = modules_.writer.LCU_SaveScan(
        {.depth = scan.depth,
         .scanTime = scan.scanTime,
         .speed = speedInFileUnits(),
         .channels = std::span(scan.calibrated).subspan(1, static_cast<std::size_t>(scan.channelCount)),
         .toolCurrent = scan.toolCurrent,
         .toolVoltage = scan.toolVoltage,
         .magneticMarker = run_.header.setup.magneticMarker});
    shown.savedDepth = saved;
    modules_.view.scanKept(shown);
    if (!saved.empty() && run_file::isValidDepth(scan.depth, run_.header.setup.units))
        return say(KeepingState::kept, {});
    if (!saved.empty()) return sayTooDeep();
    say(KeepingState::writeFailed,
        modules_.writer.held() == 0 ? "the scan could not be written, see the error log"
        : modules_.writer.lost() > 0
            ? "the run file cannot be written and no more scans can be held: they are lost"
            : "the run file cannot be written; scans are held until it can");
}

/// Everything is on file, but a reader of run files takes such depths for none.
void ScanLoop::sayTooDeep() {
    const bool feet = run_.header.setup.units == DepthUnits::feet;
    const std::string why = std::string("a run file holds no valid depth from ") +
                            (feet ? "2000 ft on. Log in metres" : "2000 m on");
    if (shownState_ != KeepingState::tooDeep)
        modules_.operatorSide.notice("Too deep for the run file",
                                     "At " + depthText(run_.scan.current.depth) + ": " + why +
                                         "; what is logged now is left out when the file is read.",
                                     Icon::critical);
    say(KeepingState::tooDeep, why);
}

/// A scan between two samples is nothing to speak of; one that can never become a sample is.
void ScanLoop::explainNotKept() {
    const ScanState& scan = run_.scan;
    if (!scan.flags.inRange)
        return say(KeepingState::outOfRange, "the depth is outside the limits of the run");
    if (run_.header.setup.sampling != Sampling::depth || scan.lastSampledDepth == noDepthSampled) return;
    const double moved = std::abs(double{scan.current.depth} - double{scan.lastSampledDepth});
    if (moved >= jump)
        say(KeepingState::depthJump,
            "the depth is 1 m or more away from the last sample at " + depthText(scan.lastSampledDepth));
}

// ---- Showing.

void ScanLoop::showScan() {
    const CurrentScan& scan = run_.scan.current;
    const bool four = run_.scanSetup.model == lcu4; // the older box measures neither voltage nor speed
    modules_.view.LCU_ShowLCUCurrent(scan.toolCurrent, four ? std::optional(scan.toolVoltage) : std::nullopt);
    if (four) modules_.view.LCU_ShowDepthSpeed(scan.depth, speed_.metresPerMinute());
}

void ScanLoop::say(KeepingState state, std::string_view why) {
    if (state == shownState_) return;
    logWriting(std::exchange(shownState_, state), state, why);
    if (state == KeepingState::kept) return modules_.view.keepingState(state, {});
    const std::string since = formatDate(modules_.clock.now(), "hh:mm");
    modules_.view.keepingState(state, "since " + since + ": " + std::string(why));
}

/// What is not written is worth a line that stays.
void ScanLoop::logWriting(KeepingState before, KeepingState now, std::string_view why) {
    const std::string name = run_.file.filename().string();
    const bool silentByTime = now == KeepingState::noScans && run_.header.setup.sampling == Sampling::time;
    if (now == KeepingState::depthJump || silentByTime)
        modules_.log.red("No scan is kept: " + std::string(why));
    if (now == KeepingState::tooDeep || now == KeepingState::writeFailed)
        modules_.log.red(name + ": " + std::string(why));
    if (before == KeepingState::writeFailed && now == KeepingState::kept)
        modules_.log.black(name + " is being written again");
}

void ScanLoop::showProgress() {
    const std::int64_t now = modules_.clock.tickMs();
    if (now - shownProgressTick_ < progressEveryMs) return;
    shownProgressTick_ = now;
    modules_.view.LCU_ShowLoggingProgress(
        {.elapsedMinutes = static_cast<double>(now - run_.startTick.value_or(now)) / 60000.0,
         .remainingMinutes = remainingMinutes(run_.header.setup, speed_.depth(), speed_.metresPerMinute()),
         .ended = false,
         .endTime = {}});
}

void ScanLoop::end(std::string_view title, std::string_view why) {
    modules_.operatorSide.notice(title, why, Icon::critical);
    ended_ = true;
}

double ScanLoop::speedInFileUnits() const {
    return fromMetres(speed_.metresPerMinute(), run_.header.setup.units);
}

std::string ScanLoop::depthText(double metres) const {
    return formatPicture(fromMetres(metres, run_.header.setup.units), "###0.00");
}

} // namespace tarvik
