#include "lcu/wire_transcript.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

std::string_view arrow(WireDirection direction) {
    switch (direction) {
    case WireDirection::sent:
        return "  >  ";
    case WireDirection::received:
        return "  <  ";
    case WireDirection::dropped:
        return "  x  ";
    }
    return {};
}

std::string threeDigits(int number) {
    std::string digits = std::to_string(number);
    return digits.insert(0, 3 - std::min<std::size_t>(digits.size(), 3), '0');
}

} // namespace

void WireTranscript::heard(WireDirection direction, std::string_view bytes, std::int64_t micros) {
    // Each command stands on a line of its own.
    if (direction != direction_ || direction == WireDirection::sent) endLine();
    direction_ = direction;
    for (const char byte : bytes) take(byte, micros);
    if (direction == WireDirection::sent) endLine();
}

void WireTranscript::take(char byte, std::int64_t micros) {
    if (micros - last_ >= quietMicros || burst_.size() == bytesPerLine) endLine();
    if (burst_.empty()) {
        const CivilTime now = clock_.now();
        time_ = formatDate(now, "hh:mm:ss") + "." + threeDigits(now.millisecond);
    }
    burst_ += byte;
    last_ = micros;
}

void WireTranscript::settle(std::int64_t micros) {
    if (micros - last_ >= quietMicros) endLine();
}

void WireTranscript::endLine() {
    if (burst_.empty()) return;
    std::string hex, text;
    for (const char character : burst_) {
        const auto byte = static_cast<unsigned char>(character);
        hex += hexDigits[byte >> 4];
        hex += hexDigits[byte & 15];
        hex += ' ';
        text += byte >= 32 && byte < 127 ? character : '.';
    }
    hex.resize(bytesPerLine * 3 + 1, ' ');
    lines_.push_back(time_ + std::string(arrow(direction_)) + hex + text);
    if (lines_.size() > linesKept) lines_.pop_front();
    ++completed_;
    burst_.clear();
}

void WireTranscript::clear() {
    burst_.clear();
    lines_.clear();
}

std::string WireTranscript::line(std::size_t number) const {
    const std::size_t first = completed_ - lines_.size();
    if (number < first || number >= completed_) return {};
    return lines_[number - first];
}

} // namespace tarvik
