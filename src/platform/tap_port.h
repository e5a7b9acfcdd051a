// A serial port that somebody may listen to: whoever wants to see the raw bytes of the line attaches a
// listener for as long as he looks. Without one every call goes straight through.
#pragma once

#include "platform/clock.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <string_view>

namespace tarvik {

enum class WireDirection : std::uint8_t {
    sent,     ///< to the box
    received, ///< read by the program
    dropped,  ///< received, and discarded unread
};

class WireListener {
  public:
    virtual ~WireListener() = default;
    /// `micros` is the clock's tick count. Received bytes come one by one.
    virtual void heard(WireDirection direction, std::string_view bytes, std::int64_t micros) = 0;
};

class TapPort final : public SerialPort {
  public:
    /// Port and clock outlive the tap.
    TapPort(SerialPort& port, const Clock& clock) : port_(port), clock_(clock) {}

    /// Null: nobody. The listener outlives its attachment.
    void listen(WireListener* listener) { listener_ = listener; }

    std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud, std::int32_t dataBits,
                         std::int32_t parityCode, std::int32_t stopCode, std::int32_t receiveBuffer,
                         std::int32_t transmitBuffer) override {
        return port_.ComOpen(device, port, baud, dataBits, parityCode, stopCode, receiveBuffer,
                             transmitBuffer);
    }
    std::int32_t ComClose(std::int32_t port) override { return port_.ComClose(port); }
    std::int32_t ComStatus(std::int32_t port) override { return port_.ComStatus(port); }
    /// With a listener the discarded bytes are read first, so that he hears them.
    std::int32_t Com_Flush(std::int32_t port, std::int32_t buffer) override;
    std::int32_t ComPuts(std::int32_t port, std::string_view text) override;
    std::int32_t ComGetc(std::int32_t port) override;
    std::int32_t ComSleepMS(std::int32_t port, std::int32_t milliseconds) override {
        return port_.ComSleepMS(port, milliseconds);
    }
    std::int32_t ComSetFlow(std::int32_t port, std::int32_t mode) override {
        return port_.ComSetFlow(port, mode);
    }
    std::int32_t ComSetYield(std::int32_t port, std::int32_t yield) override {
        return port_.ComSetYield(port, yield);
    }
    std::int32_t ComGetCTSStatus(std::int32_t port) override { return port_.ComGetCTSStatus(port); }
    [[nodiscard]] std::string openProblem() const override { return port_.openProblem(); }

  private:
    void tellByte(WireDirection direction, std::int32_t byte);

    SerialPort& port_;
    const Clock& clock_;
    WireListener* listener_ = nullptr;
};

} // namespace tarvik
