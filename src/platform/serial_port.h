// The serial line to the LCU, as the ten operations that the program uses. One port is open at a time.
//
// Each operation takes the port number first (1 to 4 for COM1 to COM4) and returns a 32-bit integer: 1 for
// success and a negative code for a failure, unless it says otherwise. None throws. Waiting belongs to the
// port: whoever supplies the bytes owns the time they take, so a simulated port runs an hour of logging in
// milliseconds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvik {

/// Failure codes; a caller prints the number, `openProblem` says it in words.
enum PortError : std::int32_t {
    portFailed = -1,       ///< the operating system refused, or the port is not open
    portMissing = -2,      ///< no such device
    portBusy = -3,         ///< another program holds the device
    portNotPermitted = -4, ///< the user may not open the device
    portGone = -5,         ///< the device hung up or was unplugged
};

class SerialPort {
  public:
    virtual ~SerialPort() = default;

    /// Opens device + port ("COM", 1) raw, without parity, exclusively. The two codes choose parity and stop
    /// bits in the words of the serial library; both are 1 for the LCU's line (none, one stop bit).
    virtual std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud,
                                 std::int32_t dataBits, std::int32_t parityCode, std::int32_t stopCode,
                                 std::int32_t receiveBuffer, std::int32_t transmitBuffer) = 0;
    virtual std::int32_t ComClose(std::int32_t port) = 0;

    /// Received bytes waiting; 0 none; negative when the port has gone.
    virtual std::int32_t ComStatus(std::int32_t port) = 0;
    /// Discards what was received (buffer 1).
    virtual std::int32_t Com_Flush(std::int32_t port, std::int32_t buffer) = 0;
    /// Sends the text as it stands.
    virtual std::int32_t ComPuts(std::int32_t port, std::string_view text) = 0;
    /// The next received byte, 0 to 255; negative when none is waiting.
    virtual std::int32_t ComGetc(std::int32_t port) = 0;
    /// Waits; while it waits the screens stay alive when yielding is on.
    virtual std::int32_t ComSleepMS(std::int32_t port, std::int32_t milliseconds) = 0;
    /// 2 switches flow control off.
    virtual std::int32_t ComSetFlow(std::int32_t port, std::int32_t mode) = 0;
    /// 1 lets the port yield to the window system while it waits.
    virtual std::int32_t ComSetYield(std::int32_t port, std::int32_t yield) = 0;
    /// Clear-to-send: 1 on, 0 off, negative when the device does not tell.
    virtual std::int32_t ComGetCTSStatus(std::int32_t port) = 0;

    /// Why the last `ComOpen` failed and what to do about it, one plain sentence; empty after a success.
    [[nodiscard]] virtual std::string openProblem() const = 0;
};

} // namespace tarvik
