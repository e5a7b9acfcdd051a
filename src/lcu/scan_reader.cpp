#include "lcu/scan_reader.h"

#include "lcu/link_claim.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::int32_t idleWaitMs = 5;
constexpr std::int32_t pollMs = 1; // a line at 115200 baud brings 11 bytes in the meantime
constexpr std::int32_t receiveSide = 1;
constexpr std::int32_t pauseMs =
    3; // between two scans nothing comes; within one a byte takes 1 ms at the most
constexpr std::int64_t stillForMs = 50; // a remainder that takes longer is in trouble, and the screens go on

/// Keeps the screens still while a remainder comes in: on a busy line a window that is painted then lets the
/// next scan arrive behind it, and one byte too many costs both. Between scans a backlog harms nothing.
class Stillness {
  public:
    Stillness(SerialPort& serial, std::int32_t port) : serial_(serial), port_(port) {}
    ~Stillness() { end(); }
    Stillness(const Stillness&) = delete;
    Stillness& operator=(const Stillness&) = delete;

    void begin() {
        if (!still_) serial_.ComSetYield(port_, 0);
        still_ = true;
    }
    void end() {
        if (still_) serial_.ComSetYield(port_, 1);
        still_ = false;
    }

  private:
    SerialPort& serial_;
    std::int32_t port_;
    bool still_ = false;
};

} // namespace

ScanRead ScanReader::read() {
    const LinkClaim claim(link_);
    if (!claim) {
        serial_.ComSleepMS(link_.port, idleWaitMs);
        return {};
    }
    serial_.ComSleepMS(link_.port, 0); // the moment for the screens
    std::int32_t waiting = serial_.ComStatus(link_.port);
    if (waiting == 0) {
        serial_.ComSleepMS(link_.port, idleWaitMs);
        waiting = serial_.ComStatus(link_.port);
    }
    if (waiting < 0) return {.kind = ScanRead::Kind::portGone};
    if (waiting == 0) return {};
    const std::int32_t length = serial_.ComGetc(link_.port);
    if (length < 0) return {.kind = ScanRead::Kind::portGone};
    switch (framer_.begin(static_cast<std::uint8_t>(length))) {
    case FrameVerdict::scan:
        return result(ScanRead::Kind::scan, 0);
    case FrameVerdict::overflow1:
        return discarding(ScanRead::Kind::overflow1, 0);
    default:
        return readRemainder();
    }
}

ScanRead ScanReader::readRemainder() {
    const std::int64_t start = clock_.tickMs();
    Stillness still(serial_, link_.port);
    while (true) {
        const std::int32_t waiting = serial_.ComStatus(link_.port);
        const std::int64_t waited = clock_.tickMs() - start;
        if (waiting < 0) return result(ScanRead::Kind::portGone, waited);
        const FrameVerdict verdict = framer_.look(waiting, [this] { return serial_.ComGetc(link_.port); });
        if (verdict == FrameVerdict::scan) return result(ScanRead::Kind::scan, waited);
        if (verdict == FrameVerdict::overflow2) return discarding(ScanRead::Kind::overflow2, waited);
        if (waited >= remainderTimeoutMs) return discarding(ScanRead::Kind::timeout, waited);
        waited < stillForMs ? still.begin() : still.end();
        if (serial_.ComSleepMS(link_.port, pollMs) != 1) return result(ScanRead::Kind::portGone, waited);
    }
}

ScanRead ScanReader::result(ScanRead::Kind kind, std::int64_t waitedMs) const {
    return {.kind = kind,
            .bytes = framer_.bytes(),
            .expected = framer_.expected(),
            .received = static_cast<int>(framer_.bytes().size()),
            .waitedSeconds = static_cast<double>(waitedMs) / 1000.0};
}

/// Nothing in the stream says where the next scan begins: what waits is given up as a whole.
ScanRead ScanReader::discarding(ScanRead::Kind kind, std::int64_t waitedMs) {
    ScanRead read = result(kind, waitedMs);
    if (kind == ScanRead::Kind::overflow2) read.received += std::max(serial_.ComStatus(link_.port), 0);
    discardToPause();
    return read;
}

/// Including the rest of a scan that is still coming in: its bytes would be taken for a scan of their own,
/// with a depth and a tool current that never were. A line without pauses is not waited for.
void ScanReader::discardToPause() {
    const std::int64_t end = clock_.tickMs() + stillForMs;
    do {
        serial_.Com_Flush(link_.port, receiveSide);
        if (serial_.ComSleepMS(link_.port, pauseMs) != 1) return;
    } while (serial_.ComStatus(link_.port) > 0 && clock_.tickMs() < end);
}

} // namespace tarvik
