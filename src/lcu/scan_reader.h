// Reads one scan after the other from the open port. Allocates nothing.
#pragma once

#include "app/link_state.h"
#include "lcu/scan_framer.h"
#include "platform/clock.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <span>

namespace tarvik {

struct ScanRead {
    enum class Kind : std::uint8_t {
        none,      ///< nothing is coming
        scan,      ///< `bytes` are its data bytes, possibly none
        timeout,   ///< the remainder did not come within 200 ms
        overflow1, ///< length byte 0
        overflow2, ///< more bytes than the scan still needed
        portGone,  ///< the port reports an error: unplugged or hung up
    };

    Kind kind = Kind::none;
    std::span<const std::uint8_t> bytes = {}; ///< what came; valid until the next read
    int expected = 0; ///< data bytes that the length byte promised, L - 1; -1 for an overflow of type 1
    int received = 0; ///< data bytes that came; after an overflow also those beyond `bytes`
    double waitedSeconds = 0; ///< for the remainder
};

class ScanReader {
  public:
    static constexpr std::int64_t remainderTimeoutMs = 200;

    ScanReader(SerialPort& serial, const Clock& clock, LinkState& link)
        : serial_(serial), clock_(clock), link_(link) {}
    ScanReader(const ScanReader&) = delete;
    ScanReader& operator=(const ScanReader&) = delete;

    /// The next scan. When no length byte waits it waits a few milliseconds for one, so that a loop around it
    /// neither spins nor keeps a stop button waiting, and returns `none`. After a time-out or an overflow
    /// everything that waits is discarded, up to the next pause of the line, and the next byte counts as a
    /// length byte. The caller sets the status of the current scan to -1 then.
    ScanRead read();

  private:
    ScanRead readRemainder();
    ScanRead result(ScanRead::Kind kind, std::int64_t waitedMs) const;
    ScanRead discarding(ScanRead::Kind kind, std::int64_t waitedMs);
    void discardToPause();

    SerialPort& serial_;
    const Clock& clock_;
    LinkState& link_;
    ScanFramer framer_;
};

} // namespace tarvik
