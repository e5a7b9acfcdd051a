#include "lcu/diagnostics_log.h"

#include "base/number_picture.h"

namespace tarvik {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t fullLinesRoom = 3'000; // characters: a stream that nobody clears fills no memory
constexpr std::size_t depthWidth = 7;
constexpr std::size_t timeWidth = 7;
constexpr std::size_t channelWidth = 7;

/// Right-aligned; a number that needs more room moves the rest along.
std::string right(const std::string& text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string left(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

} // namespace

std::string DiagnosticsLog::heading(int channels) {
    std::string text = " Depth   Time  ";
    for (int channel = 1; channel <= channels; ++channel) {
        text += left("Chan" + std::to_string(channel), channelWidth);
    }
    return text.append(" Status/Current/Volt").append(lineEnd);
}

std::string DiagnosticsLog::line(const DiagnosticsScan& scan) {
    std::string text = right(formatPicture(scan.depth, "###0.00"), depthWidth) +
                       right(formatPicture(scan.time, "####00"), timeWidth) + " ";
    for (int channel = 1; channel <= scan.channels; ++channel) {
        const std::string count = formatPicture(scan.counts[static_cast<std::size_t>(channel)], "####0");
        text += " " + right(count, channelWidth - 2) + " ";
    }
    text += "  " + formatPicture(scan.status, "####0") + "/" + formatPicture(scan.current, "####0") + "/" +
            formatPicture(scan.voltage, "####0");
    return text.append(lineEnd);
}

std::string DiagnosticsLog::diag_logdata(const DiagnosticsScan& scan) {
    std::string appended;
    if (text_.size() > capacity + fullLinesRoom) return appended; // said often enough
    if (text_.size() > capacity) {
        appended = "Log file FULL - please clear\r\n";
    } else {
        if (channels_ != scan.channels) appended = heading(scan.channels);
        channels_ = scan.channels;
        appended += line(scan);
    }
    text_ += appended;
    return appended;
}

void DiagnosticsLog::clear() {
    text_.clear();
    channels_ = -1;
}

} // namespace tarvik
