#include "lcu/raw_scan_decoder.h"

#include "base/rounding.h"
#include "lcu/scan_bytes.h"
#include "lcu/tool_rules.h"

#include <string_view>

namespace tarvik {

namespace {

/// The supply words' sign as stored raw counts have it: 2048 is negative, and it is 4095 that is subtracted.
constexpr std::int32_t signedSupplyWord(int word) {
    return word >= 2048 ? word - 4095 : word;
}

void put(CurrentScan& current, int index, std::int32_t value) {
    if (index < 0 || index > maxChannels) return;
    current.rawData[static_cast<std::size_t>(index)] = value;
}

} // namespace

std::int16_t RawScanDecoder::LCU_GetRawDataScan(std::span<const std::uint8_t> scan, CurrentScan& current) {
    return errors_.run("LCUFunctions-LCU_GetRawDataScan", std::int16_t{0}, [&](Level&) -> std::int16_t {
        return scan.empty() ? std::int16_t{0} : decode(scan, current);
    });
}

std::int16_t RawScanDecoder::decode(std::span<const std::uint8_t> bytes, CurrentScan& current) const {
    const ScanBytes scan(bytes);
    const std::int32_t depth = scan.depthCount();
    put(current, 0, depth >= 0x800000 ? depth - 0x1000000 : depth);
    put(current, 1, scan.timeCount());
    if (setup_.model) current.channelCount = scan.channels(*setup_.model);

    // Variants of a tool share the first four characters of its code and its rule here.
    const bool isSigned = toolRule(std::string_view(setup_.toolCode).substr(0, 4)).rawSigned;
    for (int channel = 1; channel <= setup_.channels; ++channel) {
        const int word = scan.channelWord(channel);
        put(current, channel + 1, isSigned && word > 32767 ? word - 65536 : word);
    }

    int next = current.channelCount + 2;
    if (setup_.model == lcu2Plus) {
        put(current, next++, scan.byteFromEnd(1)); // status
        put(current, next++, scan.byteFromEnd(0)); // tool supply
    } else if (setup_.model == lcu4) {
        put(current, next++, scan.byteFromEnd(6)); // status
        put(current, next++, signedSupplyWord(scan.wordFromEnd(1)));
        put(current, next++, signedSupplyWord(scan.wordFromEnd(3)));
        put(current, next++, signedSupplyWord(scan.wordFromEnd(5)));
    }
    return toInt16(next);
}

} // namespace tarvik
