#include "lcu/overflow_report.h"

#include "base/bytes.h"

namespace tarvik {

namespace {

constexpr std::size_t depthAndTime = 5; // bytes at the start of a scan
constexpr double bandAbove = 100;       // metres: what counts as near the logged interval
constexpr double bandBelow = 1000;

/// As the value decoder scales them; missing bytes give no reading.
std::optional<OverflowReading> readingAt(std::span<const std::uint8_t> bytes, std::size_t at,
                                         const RunSetup& run) {
    if (bytes.size() < at + depthAndTime) return std::nullopt;
    auto count = static_cast<std::int32_t>(readU24be(&bytes[at]));
    if (count > 0x800000) count -= 0x1000000;
    return OverflowReading{.depth = count * 0.01 * run.winchDepthFactor * run.depthScaleFactor,
                           .time = readU16be(&bytes[at + 3])};
}

bool isNear(double depth, const RunSetup& run) {
    return run.limitsOverride || (depth >= run.topDepth - bandAbove && depth <= run.bottomDepth + bandBelow);
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
    overflow.secondSensible = overflow.second && isNear(overflow.second->depth, setup.run);
    return overflow;
}

} // namespace tarvik
