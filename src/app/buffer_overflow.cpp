#include "app/buffer_overflow.h"

#include "base/number_picture.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::size_t bytesPerLine = 10;

std::string speedText(const BufferOverflow& overflow) {
    return formatPicture(overflow.speed, "##0.0");
}

std::string readingLine(std::string_view bytes, const OverflowReading& reading) {
    return "   " + std::string(bytes) + " buffer bytes give values :  Depth " +
           formatPicture(reading.depth, "#,###.00") + "  time " + formatPicture(reading.time, "##00") +
           " msecs";
}

void appendVerdict(std::vector<std::string>& lines, const BufferOverflow& overflow) {
    if (!overflow.holdsSecondScan()) {
        lines.emplace_back("   Insufficient remaining bytes to analyse as a full scan");
        return;
    }
    lines.push_back(readingLine("Additional", *overflow.second));
    if (overflow.secondSensible) {
        lines.emplace_back("   It appears that the LCU sent valid scan data therefore");
        lines.emplace_back("   this indicates too high a logging speed");
    } else {
        lines.emplace_back("   The additional buffer bytes appear to indicate corrupted");
        lines.emplace_back("   or spurious LCU data as the depth value is not sensible");
    }
}

void appendByteLines(std::vector<std::string>& lines, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto line = bytes.first(std::min(bytes.size(), bytesPerLine));
        std::string text = "   Byte values";
        for (const std::uint8_t byte : line) text += " " + formatPicture(byte, "000");
        lines.push_back(std::move(text));
        bytes = bytes.subspan(line.size());
    }
}

} // namespace

std::vector<std::string> overflowAnalysis(const BufferOverflow& overflow) {
    std::vector<std::string> lines{"   Buffer overflow type " + std::to_string(overflow.type) + " expected " +
                                       std::to_string(overflow.expected) + " chars, received " +
                                       std::to_string(overflow.received),
                                   "   Sampling method " + overflow.samplingMethod + " interval " +
                                       shortestNumber(overflow.interval) + " Speed " + speedText(overflow)};
    if (overflow.type == 1) return lines;

    lines.push_back(readingLine("Initial", overflow.first));
    appendVerdict(lines, overflow);
    appendByteLines(lines, overflow.bytes);
    return lines;
}

std::vector<std::string> overflowFormLines(const BufferOverflow& overflow) {
    std::vector<std::string> lines{
        "  This form has been displayed because of a buffer overflow",
        "  during data acquisition.  This can be caused by -",
        "    1) attempting to acquire data at too high a winch speed",
        "    2) spurious data from the LCU unit",
        "  Buffer should have contained " + std::to_string(overflow.expected) + " characters however there",
        "  were " + std::to_string(overflow.received) + " characters.  Speed was " + speedText(overflow)};
    std::ranges::move(overflowAnalysis(overflow), std::back_inserter(lines));
    return lines;
}

} // namespace tarvik
