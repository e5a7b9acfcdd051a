#include "simulator/transmitter.h"

#include <algorithm>

namespace lcusim {

namespace {

constexpr Micros longestHold = 30 * millisecond;

} // namespace

Transmitter::Transmitter(const SimulatorOptions& options, Recorder& recorder)
    : gentle_(options.gentle),
      recorder_(recorder),
      random_(options.seed ^ 0x4C696E65),
      line_(options.transmitQueue) {}

void Transmitter::cutIntoPieces(ScanFrame& frame, Micros sinceLast) {
    const Micros idle = sinceLast - line_.timeOf(frame.record.size);
    if (gentle_ || frame.burst || frame.hold != 0 || idle <= 0) return;
    frame.holdFrom = static_cast<std::size_t>(random_.below(static_cast<std::int64_t>(frame.record.size)));
    frame.hold = random_.below(std::min(longestHold, idle / 2) + 1);
}

void Transmitter::sendScan(ScanFrame& frame, Micros now, Micros sinceLast) {
    cutIntoPieces(frame, sinceLast);
    ScanRecord& scan = frame.record;
    const std::size_t fits = std::min(scan.size, line_.room());
    // A gentle box gives up whole scans when its queue is full, a real one just loses what does not fit.
    if (fits == 0 || (gentle_ && fits < scan.size)) return dropScan(scan);
    if (fits < scan.size) scan.fate = ScanFate::damaged;

    const Micros burstAt = now + frame.hold + line_.timeOf(scan.size - frame.holdFrom - 1);
    for (std::size_t i = 0; i < fits; ++i) {
        const bool held = i >= frame.holdFrom;
        const Micros notBefore = !held ? now : frame.burst ? burstAt : now + frame.hold;
        line_.push({.value = scan.bytes[i],
                    .notBefore = notBefore,
                    .withPrevious = frame.burst && i > frame.holdFrom,
                    .lastOfScan = i + 1 == fits,
                    .scan = scan.number});
    }
    pending_.push_back({scan, false});
}

void Transmitter::dropScan(const ScanRecord& scan) {
    pending_.push_back({scan, true});
    pending_.back().record.fate = ScanFate::dropped;
    report();
}

void Transmitter::sendReply(std::span<const std::uint8_t> reply, Micros now, Micros delay, Micros promise) {
    const Micros first = gentle_ ? promise / 4 : random_.below(promise / 2);
    const Micros rest = gentle_ ? 0 : random_.below(promise / 2);
    const auto cut = static_cast<std::size_t>(random_.below(static_cast<std::int64_t>(reply.size()) + 1));
    for (std::size_t i = 0; i < reply.size(); ++i)
        line_.push({.value = reply[i], .notBefore = now + delay + first + (i < cut ? 0 : rest)});
}

void Transmitter::withdrawScans() {
    line_.withdrawScansNotBegun();
    for (Pending& scan : pending_) {
        if (scan.settled || scan.record.number == line_.scanUnderWay()) continue;
        scan.settled = true;
        scan.record.fate = ScanFate::dropped;
    }
    report();
}

void Transmitter::deliver(ByteSink& host, Reach reach, Micros now) {
    const LineByte byte = line_.pop();
    if (reach == Reach::host) host.take(byte.value, now);
    if (reach == Reach::wrongSpeed && !gentle_) host.take(random_.byte(), now);
    if (byte.scan == 0) return;
    lost_ = lost_ || reach != Reach::host;
    if (!byte.lastOfScan) return;
    settle(byte.scan, lost_ ? ScanFate::lost : ScanFate::sent);
    lost_ = false;
}

void Transmitter::settle(std::int64_t scan, ScanFate fate) {
    const auto found = std::ranges::find(pending_, scan, [](const Pending& p) { return p.record.number; });
    if (found == pending_.end()) return;
    found->settled = true;
    if (fate != ScanFate::sent) found->record.fate = fate;
    report();
}

void Transmitter::report() {
    while (!pending_.empty() && pending_.front().settled) {
        recorder_.scan(pending_.front().record);
        pending_.pop_front();
    }
}

} // namespace lcusim
