// A tool, a scan and the decoders that take it apart.
#pragma once

#include "lcu/lcu_bench.h"
#include "lcu/raw_scan_decoder.h"
#include "lcu/scan_decoder.h"

namespace tarvik::test {

using ScanData = std::vector<std::uint8_t>;

inline void appendBig(ScanData& data, std::uint32_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
        data.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

/// A scan as the box packs it. `trailer`: 2 or 7 bytes.
inline ScanData scanData(std::uint32_t depth, std::uint16_t time, const std::vector<std::uint16_t>& words,
                         const ScanData& trailer) {
    ScanData data;
    appendBig(data, depth, 3);
    appendBig(data, time, 2);
    for (const std::uint16_t word : words) appendBig(data, word, 2);
    data.insert(data.end(), trailer.begin(), trailer.end());
    return data;
}

inline const ScanData idle{129, 0};                 // LCU2Plus: status, supply
inline const ScanData idle4{145, 0, 0, 0, 0, 0, 0}; // LCU4: status, A, B, C

struct ScanBench : LcuBench {
    explicit ScanBench(const LcuModel* model, std::string code = "K100", int channels = 3) {
        setup.model = model;
        setup.toolCode = std::move(code);
        setup.channels = channels;
        for (std::size_t i = 1; i <= maxChannels; ++i) {
            setup.factors[i] = {.kind = 4, .factor = 0};
            setup.polynomials[i] = {.order = 1, .coefficients = {0, 2}};
        }
        state.scans = 3;
    }
    void decode(const ScanData& data, DerivedValues* deviation = nullptr) {
        ScanDecoder(errors, log, setup, state, deviation).LCU_GetValues(data);
    }
    /// A scan at that depth in centimetres with an ordinary time and no channels.
    void at(std::int32_t centimetres) {
        setup.channels = 0;
        decode(scanData(static_cast<std::uint32_t>(centimetres) & 0xFFFFFF, 100, {}, idle));
    }
    [[nodiscard]] const CurrentScan& scan() const { return state.current; }

    ScanSetup setup;
    ScanState state;
};

} // namespace tarvik::test
