// The serial port of the program with simulated boxes behind it, on a clock that moves only while the program
// waits or polls. An hour of logging takes as long as its arithmetic.
#pragma once

#include "platform/serial_port.h"
#include "platform/virtual_clock.h"
#include "simulator/lcu_engine.h"
#include "simulator/units.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lcusim {

class SimulatedPort final : public tarvik::SerialPort {
  public:
    /// The clock outlives the port. No COM port exists until it is plugged in.
    explicit SimulatedPort(tarvik::VirtualClock& clock);

    /// COM `port` (1 to 4) exists; the engine, which outlives this port, is behind it.
    void connect(std::int32_t port, LcuEngine& engine);
    /// COM `port` exists with nothing behind it.
    void plugIn(std::int32_t port);
    /// COM `port` exists, but opening it gives this code (portBusy, portNotPermitted ...); 1 lets it open
    /// again.
    void refuse(std::int32_t port, std::int32_t code);
    /// The next `times` calls of the operation ("ComPuts", "ComSleepMS", ...) do nothing and return `code`.
    void failNext(std::string operation, std::int32_t code, int times = 1);
    /// Called in every sleep while yielding is on, as the window system would be.
    void whileWaiting(std::function<void()> callback);
    /// Time that each poll of `ComStatus` takes, so that polling loops make headway. Default 100.
    void setPollCost(Micros micros);

    [[nodiscard]] std::int32_t openPort() const; ///< 0 when none is
    [[nodiscard]] int baud() const;              ///< of the open port
    /// Bytes that found the receive buffer full.
    [[nodiscard]] std::int64_t bytesOverrun() const;

    std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud, std::int32_t dataBits,
                         std::int32_t parityCode, std::int32_t stopCode, std::int32_t receiveBuffer,
                         std::int32_t transmitBuffer) override;
    std::int32_t ComClose(std::int32_t port) override;
    std::int32_t ComStatus(std::int32_t port) override;
    std::int32_t Com_Flush(std::int32_t port, std::int32_t buffer) override;
    std::int32_t ComPuts(std::int32_t port, std::string_view text) override;
    std::int32_t ComGetc(std::int32_t port) override;
    std::int32_t ComSleepMS(std::int32_t port, std::int32_t milliseconds) override;
    std::int32_t ComSetFlow(std::int32_t port, std::int32_t mode) override;
    std::int32_t ComSetYield(std::int32_t port, std::int32_t yield) override;
    std::int32_t ComGetCTSStatus(std::int32_t port) override;
    [[nodiscard]] std::string openProblem() const override;

  private:
    struct Socket {
        bool exists = false;
        std::int32_t openResult = 1;
        LcuEngine* engine = nullptr;
    };
    struct Failure {
        std::string operation;
        std::int32_t code;
        int times;
    };
    /// What the operating system holds for the program; the newest byte is lost when it is full.
    class ReceiveBuffer final : public ByteSink {
      public:
        void open(std::size_t capacity);
        void clear();
        void take(std::uint8_t byte, Micros at) override;
        [[nodiscard]] std::size_t size() const { return size_; }
        [[nodiscard]] std::uint8_t next();
        [[nodiscard]] std::int64_t overrun() const { return overrun_; }

      private:
        std::vector<std::uint8_t> bytes_;
        std::size_t head_ = 0;
        std::size_t size_ = 0;
        std::int64_t overrun_ = 0;
    };

    [[nodiscard]] Socket& socketOf(std::int32_t port);
    /// 1 when the port is open and its device still there, else the code to return.
    [[nodiscard]] std::int32_t usable(std::int32_t port) const;
    /// The code that the operation is to fail with this time.
    [[nodiscard]] std::optional<std::int32_t> forced(std::string_view operation);
    void pass(Micros micros);
    [[nodiscard]] std::int32_t openResult(Socket& socket);

    tarvik::VirtualClock& clock_;
    std::array<Socket, 4> sockets_; ///< COM1 to COM4
    std::int32_t open_ = 0;
    bool gone_ = false; ///< the device of the open port hung up; only opening it afresh helps
    int baud_ = 0;
    bool yields_ = false;
    Micros pollCost_ = 100;
    ReceiveBuffer received_;
    std::vector<Failure> failures_;
    std::function<void()> whileWaiting_;
    std::string openProblem_;
};

} // namespace lcusim
