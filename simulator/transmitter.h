// The sending side of the box: a queue in front of the line, scans and answers cut into pieces, and the fate
// of each scan.
//
// Pieces never break a promise to the host: an answer is complete within the wait that its command is given,
// and a scan is held up by at most half of the time that the line would idle before the next one.
#pragma once

#include "simulator/lcu_engine.h"
#include "simulator/random.h"
#include "simulator/record.h"
#include "simulator/timed_line.h"

#include <cstdint>
#include <deque>
#include <span>

namespace lcusim {

/// A scan ready for the line. Faults may hold up its end or add to its bytes.
struct ScanFrame {
    ScanRecord record;
    std::size_t holdFrom = 0; ///< bytes from this one on wait for `hold`
    Micros hold = 0;
    bool burst = false; ///< those bytes arrive together
};

enum class Reach : std::uint8_t { host, wrongSpeed, nobody };

class Transmitter {
  public:
    Transmitter(const SimulatorOptions& options, Recorder& recorder);

    void setBaud(int baud) { line_.setBaud(baud); }
    /// `sinceLast` is the time between this scan and the one before.
    void sendScan(ScanFrame& frame, Micros now, Micros sinceLast);
    /// Notes a scan that never gets into the queue.
    void dropScan(const ScanRecord& scan);
    /// All bytes are on their way by now + delay + promise, if the line is free.
    void sendReply(std::span<const std::uint8_t> reply, Micros now, Micros delay, Micros promise);
    /// The stream stops: only the scan under way is finished.
    void withdrawScans();

    [[nodiscard]] Micros dueAt() const { return line_.dueAt(); }
    /// Passes on the byte that is due now.
    void deliver(ByteSink& host, Reach reach, Micros now);

  private:
    void cutIntoPieces(ScanFrame& frame, Micros sinceLast);
    void settle(std::int64_t scan, ScanFate fate);
    void report();

    struct Pending {
        ScanRecord record;
        bool settled = false;
    };

    bool gentle_;
    Recorder& recorder_;
    Random random_;
    TimedLine line_;
    std::deque<Pending> pending_;
    bool lost_ = false; ///< a byte of the scan under way did not reach the host
};

} // namespace lcusim
