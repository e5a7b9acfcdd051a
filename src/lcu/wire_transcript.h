// The raw bytes of the serial line as lines to read: time, direction, hexadecimal and text.
//   09:00:01.250  >  51 0A                                            Q.
//   09:00:01.553  <  51 91                                            Q.
// Bytes of one direction stand together until 20 ms pass without one. The latest lines are kept.
#pragma once

#include "platform/clock.h"
#include "platform/tap_port.h"

#include <cstddef>
#include <deque>
#include <string>

namespace tarvik {

class WireTranscript final : public WireListener {
  public:
    static constexpr std::size_t linesKept = 2000;
    static constexpr std::size_t bytesPerLine = 16;
    static constexpr std::int64_t quietMicros = 20'000;

    explicit WireTranscript(const Clock& clock) : clock_(clock) {}

    void heard(WireDirection direction, std::string_view bytes, std::int64_t micros) override;

    /// Ends the line in hand if the wire has been quiet.
    void settle(std::int64_t micros);
    /// Ends the line in hand.
    void finish() { endLine(); }
    void clear();
    /// Lines ever completed: who shows them asks from where it stopped.
    [[nodiscard]] std::size_t completed() const { return completed_; }
    /// Line `number` from 0; empty when it has been given up for later ones.
    [[nodiscard]] std::string line(std::size_t number) const;
    [[nodiscard]] const std::deque<std::string>& lines() const { return lines_; }

  private:
    void take(char byte, std::int64_t micros);
    void endLine();

    const Clock& clock_;
    std::deque<std::string> lines_;
    std::size_t completed_ = 0;
    std::string burst_;
    WireDirection direction_ = WireDirection::sent;
    std::string time_;
    std::int64_t last_ = 0;
};

} // namespace tarvik
