// A box on the bench: a host that keeps every byte with its time, and tools to put down the hole.
#pragma once

#include "simulator/lcu_engine.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lcusim::test {

using Bytes = std::vector<std::uint8_t>;

inline ToolProfile gammaTool() {
    ToolProfile tool{.code = "T1", .name = "Test tool", .maximumCurrent = 100};
    tool.modes[0] = {
        .sensorFactors = "a1,f21,p1,z9",
        .channels = {{.name = "Gamma", .unit = "CPS", .uncalibratedLeft = 0, .uncalibratedRight = 400},
                     {.name = "Conductivity"},
                     {.name = "Caliper"},
                     {.name = "Temperature"}}};
    return tool;
}

inline ToolProfile deviationTool() {
    ToolProfile tool{.code = "K417", .name = "Deviation", .maximumCurrent = 120};
    tool.modes[0] = {.sensorFactors = "k1,k1,k1,k1,k1,k1,k1,k1", .words = 8};
    tool.modes[0].channels.resize(6);
    return tool;
}

struct Host final : ByteSink {
    void take(std::uint8_t byte, Micros at) override {
        bytes.push_back(byte);
        times.push_back(at);
    }
    Bytes bytes;
    std::vector<Micros> times;
};

struct Bench {
    explicit Bench(const SimulatorOptions& options, const ToolProfile& tool = gammaTool())
        : engine(options, tool, record) {}

    void wait(Micros ms) { engine.advance(now += ms * millisecond, host); }

    /// Sends a command, waits, and gives what arrived since.
    Bytes ask(std::string_view text, Micros ms) {
        host.bytes.clear();
        host.times.clear();
        const std::string line = std::string(text) + '\n';
        engine.hear({reinterpret_cast<const std::uint8_t*>(line.data()), line.size()}, now);
        wait(ms);
        return host.bytes;
    }

    /// The status byte, or -1.
    int status() {
        const Bytes answer = ask("Q", 300);
        return answer.size() == 2 ? answer[1] : -1;
    }

    MemoryRecord record;
    LcuEngine engine;
    Host host;
    Micros now = 0;
};

inline Fault fault(std::string_view text) {
    return parseFault(text).fault.value();
}

/// Splits an undisturbed stream into scans, the length byte first in each.
inline std::vector<Bytes> scansIn(const Bytes& stream) {
    std::vector<Bytes> scans;
    for (std::size_t i = 0; i < stream.size() && stream[i] > 0 && i + stream[i] <= stream.size();
         i += stream[i])
        scans.emplace_back(stream.begin() + static_cast<std::ptrdiff_t>(i),
                           stream.begin() + static_cast<std::ptrdiff_t>(i + stream[i]));
    return scans;
}

inline int depthOf(const Bytes& scan) {
    const int count = scan[1] << 16 | scan[2] << 8 | scan[3];
    return count >= 0x800000 ? count - 0x1000000 : count;
}

inline int timeOf(const Bytes& scan) {
    return scan[4] << 8 | scan[5];
}

} // namespace lcusim::test
