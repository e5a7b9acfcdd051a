#include "lcu/overflow_report.h"

#include "lcu/scan_bytes.h"
#include "lcu/scan_decoder.h"

#include <cmath>
#include <optional>

namespace tarvik {

namespace {

constexpr std::size_t depthAndTime = 5; // bytes at the start of a scan

/// As the value decoder scales them; missing bytes give no reading.
std::optional<OverflowReading> readingAt(std::span<const std::uint8_t> bytes, std::size_t at,
                                         const RunSetup& run) {
    if (bytes.size() < at + depthAndTime) return std::nullopt;
    const ScanBytes scan(bytes.subspan(at));
    return OverflowReading{.depth = scanDepth(scan, run), .time = scan.timeCount()};
}

/// A run without limits has no range: there the two scans have to be near each other.
bool isSensible(const OverflowReading& second, const OverflowReading& first, const RunSetup& run) {
    constexpr double near = 10; // metres, far more than a cable runs between two scans
    if (run.limitsOverride) return std::abs(second.depth - first.depth) < near;
    return isNearRange(second.depth, run);
}

} // namespace

BufferOverflow overflowReport(const ScanRead& read, const ScanSetup& setup, double speed) {
    BufferOverflow overflow;
    overflow.type = read.kind == ScanRead::Kind::overflow1 ? 1 : 2;
    overflow.expected = read.expected;
    overflow.received = read.received;
    overflow.bytes = read.bytes;
    overflow.samplingMethod = samplingText(setup.run.sampling);
    overflow.interval = setup.run.interval;
    overflow.speed = speed;
    overflow.first = readingAt(read.bytes, 0, setup.run).value_or(OverflowReading{});
    // The second scan begins behind the first and its own length byte.
    overflow.second = readingAt(read.bytes, static_cast<std::size_t>(read.expected) + 1, setup.run);
    overflow.secondSensible = overflow.second && isSensible(*overflow.second, overflow.first, setup.run);
    return overflow;
}

} // namespace tarvik
