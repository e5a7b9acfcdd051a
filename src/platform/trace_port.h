// Writes a transcript of everything that goes over a serial port: for the field engineer who wants to know
// what the LCU said, and for tests that read it back (docs/formats/transcript.md).
//
// Received bytes stand together as one burst, with the time of the first, until another operation or 20 ms
// without a byte. Lines are gathered and written in blocks of some kilobytes, at least every half second
// while the port is used, and at its closing. A transcript that cannot be written is reported once; the port
// goes on without.
#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/problem_report.h"
#include "platform/serial_port.h"

#include <array>

namespace tarvik {

class TracePort final : public SerialPort {
  public:
    /// Appends to `file`. Times count from this moment.
    TracePort(SerialPort& port, const Clock& clock, Files& files, Path file, ProblemReport report = {});
    ~TracePort() override;
    TracePort(const TracePort&) = delete;
    TracePort& operator=(const TracePort&) = delete;

    std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud, std::int32_t dataBits,
                         std::int32_t parityCode, std::int32_t stopCode, std::int32_t receiveBuffer,
                         std::int32_t transmitBuffer) override;
    std::int32_t ComClose(std::int32_t port) override;
    std::int32_t ComStatus(std::int32_t port) override;
    /// The discarded bytes are read first, so that the transcript holds them.
    std::int32_t Com_Flush(std::int32_t port, std::int32_t buffer) override;
    std::int32_t ComPuts(std::int32_t port, std::string_view text) override;
    std::int32_t ComGetc(std::int32_t port) override;
    std::int32_t ComSleepMS(std::int32_t port, std::int32_t milliseconds) override;
    std::int32_t ComSetFlow(std::int32_t port, std::int32_t mode) override;
    std::int32_t ComSetYield(std::int32_t port, std::int32_t yield) override;
    std::int32_t ComGetCTSStatus(std::int32_t port) override;
    [[nodiscard]] std::string openProblem() const override { return port_.openProblem(); }

  private:
    void beginLine(std::int64_t micros, std::string_view operation);
    void bytesLines(std::int64_t micros, std::string_view operation, std::string_view bytes);
    void note(std::string_view operation, std::string_view text);
    void takeIntoBurst(std::uint8_t byte, std::string_view operation);
    void endBurst();
    void endQuietBurst();
    void writeWhenDue();
    void write();
    [[nodiscard]] std::int64_t elapsed() const { return clock_.tickMicros() - start_; }

    SerialPort& port_;
    const Clock& clock_;
    Files& files_;
    Path file_;
    ProblemReport report_;
    std::int64_t start_;
    std::int64_t lastWrite_ = 0;
    bool failed_ = false;
    bool gone_ = false;
    std::string lines_; ///< not yet in the file

    std::array<char, 1024> burst_{};
    std::size_t burstSize_ = 0;
    std::string_view burstOperation_; ///< "recv" or "drop"
    std::int64_t burstTime_ = 0;      ///< of the first byte, microseconds
    std::int64_t lastByte_ = 0;
};

} // namespace tarvik
