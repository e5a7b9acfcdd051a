// What the box heard and sent, for comparison with what the host made of it.
#pragma once

#include "simulator/units.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace lcusim {

enum class ScanFate : std::uint8_t {
    sent,    ///< all its bytes went over the line as they should
    damaged, ///< it went over the line, but a fault or a full queue changed or cut it
    dropped, ///< never begun: the queue was full, the box was silent or the stream was stopped first
    lost,    ///< sent while the line was down or at another speed than the host's
};

[[nodiscard]] std::string_view nameOf(ScanFate fate);

/// One scan. `bytes` is what was to go over the line, the length byte first.
struct ScanRecord {
    std::int64_t number = 0; ///< from 1 since the box was switched on
    Micros sampledAt = 0;
    double depth = 0; ///< metres, where the tool truly was
    std::int32_t depthCount = 0;
    std::uint16_t timeCount = 0;
    ScanFate fate = ScanFate::sent;
    std::size_t words = 0;
    std::array<double, 40> readings{}; ///< noise-free reading of each channel, in the unit of the count kind
    std::size_t size = 0;
    std::array<std::uint8_t, 320> bytes{};
};

struct CommandRecord {
    std::int64_t number = 0; ///< from 1
    Micros heardAt = 0;
    std::string text; ///< without the line feed
    bool understood = true;
};

class Recorder {
  public:
    virtual ~Recorder() = default;
    /// Called once a scan, when its fate is settled; in the order of their numbers but for scans dropped from
    /// the queue.
    virtual void scan(const ScanRecord& scan) = 0;
    virtual void command(const CommandRecord& command) = 0;
};

/// Keeps everything in memory.
class MemoryRecord final : public Recorder {
  public:
    void scan(const ScanRecord& scan) override { scans_.push_back(scan); }
    void command(const CommandRecord& command) override { commands_.push_back(command); }

    [[nodiscard]] const std::vector<ScanRecord>& scans() const { return scans_; }
    [[nodiscard]] const std::vector<CommandRecord>& commands() const { return commands_; }
    /// The texts of all commands heard, in order.
    [[nodiscard]] std::vector<std::string> commandTexts() const;
    void clear();

  private:
    std::vector<ScanRecord> scans_;
    std::vector<CommandRecord> commands_;
};

/// Writes a line for each, and flushes it:
///   scan NUMBER MICROS DEPTH FATE HEXBYTES
///   command NUMBER MICROS understood|unknown TEXT
class StreamRecord final : public Recorder {
  public:
    explicit StreamRecord(std::ostream& out) : out_(out) {}
    void scan(const ScanRecord& scan) override;
    void command(const CommandRecord& command) override;

  private:
    std::ostream& out_;
};

/// Forgets everything.
class NoRecord final : public Recorder {
  public:
    void scan(const ScanRecord&) override {}
    void command(const CommandRecord&) override {}
};

} // namespace lcusim
