// The serial port on a device of this machine: a UART, a USB adapter, or a pseudo-terminal.
//
// The line is raw, 8 data bits, no parity, 1 stop bit, without flow control, and exclusive. Received bytes
// are moved into a ring of the asked size whenever an operation looks at them or waits; when it is full the
// rest stays with the operating system. After a hang-up the bytes in the ring can still be read, then
// `ComStatus` is `portGone` until the port is closed. An operation on a port that is not open does nothing
// and returns `portFailed`; only `ComSleepMS` still waits, so that a loop without a port does not spin.
#pragma once

#include "platform/descriptor.h"
#include "platform/receive_ring.h"
#include "platform/serial_port.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>

namespace tarvik {

/// Which device a COM port is: 1 to 4, and the path of its device.
using PortDevices = std::map<std::int32_t, std::filesystem::path>;

class TermiosPort final : public SerialPort {
  public:
    /// `yield` lets the screens live during waits, at most every 10 ms; it must not throw.
    explicit TermiosPort(PortDevices devices, std::function<void()> yield = {});
    ~TermiosPort() override { close(); }
    TermiosPort(const TermiosPort&) = delete;
    TermiosPort& operator=(const TermiosPort&) = delete;

    /// From the next opening on; a port that is open stays as it is.
    void useDevices(PortDevices devices) { devices_ = std::move(devices); }

    /// Closes the port that is open. Understands 8 data bits and the codes 1 and 1 only.
    std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud, std::int32_t dataBits,
                         std::int32_t parityCode, std::int32_t stopCode, std::int32_t receiveBuffer,
                         std::int32_t transmitBuffer) override;
    std::int32_t ComClose(std::int32_t port) override;
    std::int32_t ComStatus(std::int32_t port) override;
    std::int32_t Com_Flush(std::int32_t port, std::int32_t buffer) override;
    /// Gives up (`portFailed`) when the device does not take the whole text within two seconds.
    std::int32_t ComPuts(std::int32_t port, std::string_view text) override;
    std::int32_t ComGetc(std::int32_t port) override;
    std::int32_t ComSleepMS(std::int32_t port, std::int32_t milliseconds) override;
    std::int32_t ComSetFlow(std::int32_t port, std::int32_t mode) override;
    std::int32_t ComSetYield(std::int32_t port, std::int32_t yield) override;
    std::int32_t ComGetCTSStatus(std::int32_t port) override;
    [[nodiscard]] std::string openProblem() const override { return problem_; }

  private:
    using Instant = std::chrono::steady_clock::time_point;

    [[nodiscard]] bool isOpen(std::int32_t port) const { return device_.isOpen() && port == openPort_; }
    [[nodiscard]] std::int32_t failure() const { return gone_ ? portGone : portFailed; }
    void close();
    /// Moves what has come from the device into the ring, as far as it fits; returns how much.
    std::size_t drain();
    /// Until the device is ready for `events`, or the moment has come.
    void waitUntil(Instant moment, short events);
    void yieldWhenDue();

    PortDevices devices_;
    std::function<void()> yield_;
    Descriptor device_;
    std::int32_t openPort_ = 0;
    bool gone_ = false;
    bool yielding_ = false;
    Instant lastYield_{};
    ReceiveRing ring_;
    std::string problem_;
};

} // namespace tarvik
