// The scan stream as the diagnostics console receives it: one look at the line at a time, every 20 ms, so
// that whoever calls can serve the operator in between.
//
// It repairs nothing: a stream that goes wrong is said in the status log and what waits is given up. The
// first byte after 20 quiet milliseconds counts as a length byte again; in a stream too fast for such a pause
// the scans are found by their even spacing.
#pragma once

#include "app/link_state.h"
#include "app/status_log.h"
#include "lcu/stream_hunt.h"
#include "platform/serial_port.h"

#include <array>
#include <cstdint>
#include <span>

namespace tarvik {

class DiagnosticsAcquisition {
  public:
    static constexpr std::int32_t pollMs = 20;
    static constexpr int pollsPerScan = 150; ///< 3 seconds
    static constexpr int bytesPerLook = 50;
    static constexpr int looksWithoutSleep = 5;
    static constexpr int calmScans = 50; ///< so many without others waiting behind them: no longer behind

    enum class Look : std::uint8_t {
        nothing,
        scan, ///< complete: `bytes()` are its data bytes
        gone, ///< the port reports an error: unplugged or hung up
    };

    DiagnosticsAcquisition(SerialPort& serial, StatusLog& log, const LinkState& link)
        : serial_(serial), log_(log), link_(link) {}

    /// A stream begins.
    void start() {
        seen_ = false;
        resume();
    }
    /// The stream goes on after commands have torn it.
    void resume();
    /// Sleeps 20 ms unless there is more to take; now and then for a moment even so, because nobody else is
    /// served before it sleeps.
    [[nodiscard]] Look look();
    /// The data bytes of the latest scan, without the length byte.
    [[nodiscard]] std::span<const std::uint8_t> bytes() const {
        return {buffer_.data() + 1, static_cast<std::size_t>(length_ - 1)};
    }
    /// Looks without a whole scan, 20 ms each.
    [[nodiscard]] int polls() const { return polls_; }
    [[nodiscard]] bool lost() const { return lost_; }

  private:
    Look lookAtLine();
    Look take(std::int32_t waiting);
    Look settle(std::int32_t waiting);
    Look moreBehind(std::int32_t waiting);
    void sayTooMany(int exitCode, int expected, std::int32_t count);
    Look giveUp();
    Look scanArrived();
    Look portLost();
    Look pause();
    void linkLost();

    SerialPort& serial_;
    StatusLog& log_;
    const LinkState& link_;

    std::array<std::uint8_t, 256> buffer_{}; ///< a length byte and what it can promise
    int length_ = 1;                         ///< of the scan, its length byte included
    int received_ = 0;                       ///< bytes of it; 0: the next byte is a length byte
    int polls_ = 0;
    int awake_ = 0;        ///< looks since the last sleep
    int calm_ = calmScans; ///< scans since others waited behind one
    bool settling_ = true; ///< everything is given up until it is clear where a scan begins
    bool looked_ = false;  ///< since then: only from one look to the next can the line be called quiet
    StreamHunt hunt_;
    bool seen_ = false; ///< scans have arrived since the stream began
    bool lost_ = false;
};

} // namespace tarvik
