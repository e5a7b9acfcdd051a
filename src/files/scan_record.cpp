#include "files/scan_record.h"

#include "base/rounding.h"

#include <algorithm>

namespace tarvik {

using namespace run_file;

namespace {

double thousandths(double metres, DepthUnits units) {
    return units == DepthUnits::metres ? metres * 1000 : metres * 1000 / metresPerFoot;
}

} // namespace

void encodeScan(std::span<std::uint8_t> record, const KeptScan& kept, DepthUnits units) {
    std::uint8_t* const at = record.data();
    writeI32le(at + scan::depth, toInt32(thousandths(kept.depth, units)));
    writeI32le(at + scan::time, kept.scanTime);
    writeI32le(at + scan::speed, toInt16(kept.speed * 100)); // four bytes wide, but readers take 16 bits
    std::uint8_t* value = at + scan::values;
    for (const float channel : kept.channels) {
        writeI32le(value, toInt32(static_cast<double>(channel) * 100));
        value += 4;
    }
    std::uint8_t* const trailer = at + scan::trailer(kept.channels.size());
    writeI16le(trailer + scan::current, toInt16(kept.toolCurrent));
    writeI16le(trailer + scan::voltage, toInt16(kept.toolVoltage));
    writeU16le(trailer + scan::marker, static_cast<std::uint16_t>(kept.magneticMarker));
    writeI32le(trailer + scan::spare, 0);
    std::fill_n(trailer + scan::blanks, scan::trailerLength - scan::blanks, std::uint8_t{' '});
}

} // namespace tarvik
