#include "simulator/scan_maker.h"

#include <algorithm>
#include <cmath>

namespace lcusim {

namespace {

constexpr double supplyVolts = 72;
constexpr double metresBetweenMarks = 10; ///< of the magnetic marks on the cable

/// Faults in what a scan says.
struct ContentFault {
    FaultKind kind;
    void (*strike)(ScanContent& content, double value, double maximumCurrent);
};

constexpr std::array<ContentFault, 4> contentFaults{{
    {FaultKind::zeroScanTime, [](ScanContent& content, double, double) { content.timeCount = 0; }},
    {FaultKind::statusBits,
     [](ScanContent& content, double bit, double) {
         content.status |= static_cast<std::uint8_t>(1U << (static_cast<unsigned>(bit) & 7U));
     }},
    {FaultKind::overCurrent,
     [](ScanContent& content, double value, double maximum) {
         content.currentMilliamperes = value > 0 ? value : 1.1 * maximum + 2;
     }},
    {FaultKind::wrongChannels,
     [](ScanContent& content, double more, double) {
         const double count = static_cast<double>(content.wordCount) + more;
         content.wordCount = static_cast<std::size_t>(std::clamp(count, 0.0, static_cast<double>(mostWords)));
     }},
}};

/// Faults in how a scan goes over the line.
struct FrameFault {
    FaultKind kind;
    void (*strike)(ScanFrame& frame, double value, Random& random);
};

void replace(ScanFrame& frame, std::size_t size, std::uint8_t length) {
    frame.record.size = size;
    frame.record.bytes[0] = length;
}

void cut(ScanFrame& frame, double value, Random&) {
    const auto kept = static_cast<std::size_t>(std::max(0.0, value));
    frame.record.size = std::min(kept > 0 ? kept : frame.record.size / 2, frame.record.size);
}

/// The host has to be waiting for the second half when it and the excess arrive.
void lengthen(ScanFrame& frame, double value, Random& random) {
    ScanRecord& scan = frame.record;
    frame.holdFrom = scan.size / 2;
    frame.hold = 20 * millisecond;
    frame.burst = true;
    for (double i = 0; i < value && scan.size < scan.bytes.size(); ++i)
        scan.bytes[scan.size++] = random.byte();
}

void pause(ScanFrame& frame, double milliseconds, Random&) {
    frame.holdFrom = frame.record.size / 2;
    frame.hold = static_cast<Micros>(milliseconds * static_cast<double>(millisecond));
}

void precede(ScanFrame& frame, double value, Random& random) {
    ScanRecord& scan = frame.record;
    const auto count =
        std::min(static_cast<std::size_t>(std::max(0.0, value)), scan.bytes.size() - scan.size);
    std::shift_right(scan.bytes.begin(), scan.bytes.begin() + static_cast<std::ptrdiff_t>(scan.size + count),
                     static_cast<std::ptrdiff_t>(count));
    for (std::size_t i = 0; i < count; ++i) scan.bytes[i] = random.byte();
    scan.size += count;
}

constexpr std::array<FrameFault, 6> frameFaults{{
    {FaultKind::shortScan, cut},
    {FaultKind::zeroLength,
     [](ScanFrame& frame, double, Random&) {
         frame.record.bytes[0] = 0;
         frame.burst = true; // whoever throws away what is waiting is rid of all of it
     }},
    {FaultKind::extraBytes, lengthen},
    {FaultKind::slowScan, pause},
    {FaultKind::garbage, precede},
    {FaultKind::emptyScan,
     [](ScanFrame& frame, double value, Random&) {
         const auto data =
             static_cast<std::size_t>(std::clamp(value, 0.0, static_cast<double>(frame.record.size - 1)));
         replace(frame, 1 + data, static_cast<std::uint8_t>(1 + data));
     }},
}};

/// A cable mark reads high for 4 cm; between marks the coil hums.
std::uint16_t markerAt(double depth, Random& random) {
    const double fromMark = std::abs(std::remainder(depth, metresBetweenMarks));
    return static_cast<std::uint16_t>((fromMark <= 0.02 ? 40'000 : 200) + random.below(50));
}

} // namespace

ScanMaker::ScanMaker(const SimulatorOptions& options, DownholeTool& tool, const FaultPlan& faults)
    : model_(options.model),
      gentle_(options.gentle),
      tool_(tool),
      faults_(faults),
      random_(options.seed ^ 0x5363616E) {}

ScanContent ScanMaker::content(const Sample& sample, ScanRecord& record) {
    // The time counter stops at its end, and with it the gate of the pulse counters: a slow stretch still
    // gives the right counts a second, only from its first 6.5535 s.
    const Micros tenths = std::min<Micros>(sample.sinceLast / 100, 65'535);
    ScanContent content{.depthCount = sample.depthCount, .timeCount = static_cast<std::uint16_t>(tenths)};
    content.wordCount = tool_.wordCount();
    tool_.measure(sample.depth, static_cast<double>(tenths) / 10'000, content.words, record.readings);
    if (sample.settling && !gentle_) {
        content.timeCount = static_cast<std::uint16_t>(random_.below(65'536));
        for (auto& word : content.words) word = static_cast<std::uint16_t>(random_.below(65'536));
    }
    content.status = traitsOf(model_).healthyStatus;
    content.currentMilliamperes = tool_.current();
    content.volts = supplyVolts + random_.between(-0.5, 0.5);
    content.marker = markerAt(sample.depth, random_);
    for (const ContentFault& fault : contentFaults) {
        if (const auto value = faults_.forScan(fault.kind, sample.number))
            fault.strike(content, *value, tool_.maximumCurrent());
    }
    return content;
}

ScanFrame ScanMaker::make(const Sample& sample) {
    ScanFrame frame;
    ScanRecord& record = frame.record;
    record.number = sample.number;
    record.sampledAt = sample.at;
    record.depth = sample.depth;
    const ScanContent scan = content(sample, record);
    record.depthCount = scan.depthCount;
    record.timeCount = scan.timeCount;
    record.words = scan.wordCount;
    record.size = encodeScan(model_, scan, std::span(record.bytes).first<mostScanBytes>());
    for (const FrameFault& fault : frameFaults) {
        const auto value = faults_.forScan(fault.kind, sample.number);
        if (!value) continue;
        fault.strike(frame, *value, random_);
        record.fate = ScanFate::damaged;
    }
    return frame;
}

} // namespace lcusim
