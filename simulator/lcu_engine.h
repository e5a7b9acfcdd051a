// The box without a port: bytes from the host with the time at which they were sent go in, bytes for the host
// with the time at which each has crossed the line come out. The same seed and the same input give the same
// output.
#pragma once

#include "simulator/options.h"
#include "simulator/record.h"
#include "simulator/tool_profile.h"
#include "simulator/units.h"

#include <cstdint>
#include <memory>
#include <span>

namespace lcusim {

class HolePath;

/// The host's end of the line.
class ByteSink {
  public:
    virtual ~ByteSink() = default;
    virtual void take(std::uint8_t byte, Micros at) = 0;
};

class LcuEngine {
  public:
    /// The recorder outlives the engine. `options.mode` names a mode of the tool.
    LcuEngine(const SimulatorOptions& options, const ToolProfile& tool, Recorder& recorder);
    ~LcuEngine();
    LcuEngine(const LcuEngine&) = delete;
    LcuEngine& operator=(const LcuEngine&) = delete;

    /// The speed at which the host has opened its port.
    void setHostSpeed(int baud);
    /// Bytes that the host hands to its port at `now`; they take their time over the line.
    void hear(std::span<const std::uint8_t> bytes, Micros now);
    /// Lets the box live until `now`; everything that reaches the host by then goes to `host`. Time never
    /// runs back.
    void advance(Micros now, ByteSink& host);

    /// When something next happens by itself; `never` for an idle box.
    [[nodiscard]] Micros nextEvent() const;
    /// False while a hang-up lasts: the host's device has gone.
    [[nodiscard]] bool lineUp() const;
    [[nodiscard]] bool streaming() const;
    /// Where the tool truly is, metres.
    [[nodiscard]] double depth() const;
    /// The hole that the deviation tool travels through.
    [[nodiscard]] const HolePath& holePath() const;

  private:
    class Box;
    std::unique_ptr<Box> box_;
};

} // namespace lcusim
