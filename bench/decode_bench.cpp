// Decoding scans of 20 channels from the line into calibrated values, against the arithmetic of the channels
// alone: count rate and polynomial of the same words.
#include "base/bytes.h"
#include "base/calibration.h"
#include "base/rounding.h"
#include "count_rates.h"
#include "large_run.h"
#include "lcu/scan_decoder.h"
#include "race.h"

#include <algorithm>
#include <array>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::size_t scanBytes = 5 + 2 * maxChannels + 7; // the data bytes of an LCU4

std::vector<std::uint8_t> scansOnTheLine() {
    std::vector<std::uint8_t> bytes(maxReviewSteps * scanBytes);
    std::uint32_t random = 1;
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>((random = random * 1664525 + 1013904223) >> 24);
    return bytes;
}

void decodeScans(benchmark::State& state) {
    NoErrors errors;
    ErrorTrap trap(errors);
    const VirtualClock clock;
    DiskFiles files;
    StatusLog log(trap, clock, files, {});
    const ScanSetup setup = countRates(lcu4, maxChannels);
    ScanState scan;
    scan.scans = 3; // the first two scans of a run carry no values
    ScanDecoder decoder(trap, log, setup, scan);
    const auto bytes = scansOnTheLine();
    const auto eachScan = [&](auto&& decode) {
        for (std::size_t at = 0; at < bytes.size(); at += scanBytes)
            decode(std::span(bytes).subspan(at, scanBytes));
    };
    race(
        state,
        [&] {
            eachScan([&](auto data) {
                decoder.LCU_GetValues(data);
                benchmark::DoNotOptimize(scan);
            });
        },
        [&] {
            std::array<float, maxChannels> values{};
            eachScan([&](auto data) {
                const double time = std::max<int>(readU16be(&data[3]), 1);
                for (std::size_t i = 0; i < maxChannels; ++i) {
                    const double rate = roundHalfEven(readU16be(&data[5 + 2 * i]) * 10000.0 / time);
                    const auto& line = setup.polynomials[i + 1];
                    values[i] = evaluateCalibration(line.order, line.coefficients, static_cast<float>(rate));
                }
                benchmark::DoNotOptimize(values);
            });
        });
    state.counters["scans"] = maxReviewSteps;
}
BENCHMARK(decodeScans)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
