// The serial line as the commands and the search use it: the open port's number comes from the link state,
// every text gets its line feed, and what goes wrong with the port itself becomes a line of the status log.
#pragma once

#include "app/link_state.h"
#include "app/status_log.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvik {

/// "COM1": how the log and the screens name a port.
[[nodiscard]] std::string comName(std::int32_t port);

class LcuPort {
  public:
    LcuPort(SerialPort& serial, StatusLog& log, LinkState& link) : serial_(serial), log_(log), link_(link) {}

    /// Opens the port as the LCU wants it (8 data bits, no parity, no flow control) and logs how it went.
    /// After a success the link state holds port and speed.
    bool open(std::int32_t port, std::int32_t baud);
    /// Of the last `open` that failed: its code and the port's own sentence.
    [[nodiscard]] std::int32_t openingCode() const { return openingCode_; }
    [[nodiscard]] std::string openingProblem() const { return serial_.openProblem(); }
    /// Closes the open port and opens it again as it was, without a word: for a line that was lost.
    bool reopen();
    /// Closes the port if one is open, logs it and sets the number to 0.
    void close();

    /// Discards what waits, with its log line, and sends the text with a line feed. Returns the port's code.
    std::int32_t send(std::string_view text);
    /// `send`, a wait, and the number of bytes that came. Port codes of sending and waiting are dropped: who
    /// cares about them sends and waits step by step.
    std::int32_t ask(std::string_view text, std::int32_t waitMs);

    std::int32_t wait(std::int32_t milliseconds) { return serial_.ComSleepMS(link_.port, milliseconds); }
    [[nodiscard]] std::int32_t waiting() { return serial_.ComStatus(link_.port); }
    [[nodiscard]] std::int32_t next() { return serial_.ComGetc(link_.port); }
    /// Discards what waits, without a word.
    void discard();

  private:
    std::int32_t openDevice(std::int32_t port, std::int32_t baud);

    SerialPort& serial_;
    StatusLog& log_;
    LinkState& link_;
    std::int32_t openingCode_ = 1;
};

} // namespace tarvik
