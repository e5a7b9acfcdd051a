#include "platform/trace_port.h"

#include <charconv>
#include <exception>

namespace tarvik {

namespace {

constexpr std::size_t blockSize = 4096;            ///< characters gathered before they are written
constexpr std::int64_t longestGathering = 500'000; ///< microseconds
constexpr std::int64_t quietEndsBurst = 20'000;    ///< microseconds without a byte
constexpr std::size_t bytesPerLine = 16;
constexpr std::size_t timeWidth = 12;
constexpr std::size_t operationWidth = 6;

void pad(std::string& text, std::size_t start, std::size_t width) {
    const std::size_t length = text.size() - start;
    text.append(width > length ? width - length : 0, ' ');
}

void addHex(std::string& text, std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.append({digits[byte >> 4], digits[byte & 15], ' '});
    }
}

/// "|X.|": bytes that are no printable ASCII as points.
void addPrintable(std::string& text, std::string_view bytes) {
    text += '|';
    for (const char c : bytes) text += c >= ' ' && c <= '~' ? c : '.';
    text += '|';
}

} // namespace

TracePort::TracePort(SerialPort& port, const Clock& clock, Files& files, Path file, ProblemReport report)
    : port_(port),
      clock_(clock),
      files_(files),
      file_(std::move(file)),
      report_(std::move(report)),
      start_(clock.tickMicros()) {
    lines_.reserve(2 * blockSize);
    lines_ += "# Tarvik transcript, " + formatDate(clock.now(), "dddd dd-mmm-yyyy hh:mm:ss") + "\n";
    lines_ += "# milliseconds  operation  bytes in hexadecimal and as text\n";
}

TracePort::~TracePort() {
    endBurst();
    write();
}

void TracePort::beginLine(std::int64_t micros, std::string_view operation) {
    std::array<char, 24> digits{};
    const auto whole = std::to_chars(digits.data(), digits.data() + digits.size(), micros / 1000);
    const auto length = static_cast<std::size_t>(whole.ptr - digits.data());
    lines_.append(timeWidth > length + 4 ? timeWidth - length - 4 : 0, ' ');
    lines_.append(digits.data(), length);
    const auto part = static_cast<char>(micros / 100 % 10 + '0');
    lines_.append(
        {'.', part, static_cast<char>(micros / 10 % 10 + '0'), static_cast<char>(micros % 10 + '0'), ' '});
    const std::size_t start = lines_.size();
    lines_ += operation;
    pad(lines_, start, operationWidth);
}

void TracePort::bytesLines(std::int64_t micros, std::string_view operation, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view row = bytes.substr(0, bytesPerLine);
        beginLine(micros, operation);
        const std::size_t start = lines_.size();
        addHex(lines_, row);
        pad(lines_, start, 3 * bytesPerLine);
        addPrintable(lines_, row);
        lines_ += '\n';
        bytes.remove_prefix(row.size());
        operation = "+";
    }
}

void TracePort::note(std::string_view operation, std::string_view text) {
    if (failed_) return;
    endBurst();
    beginLine(elapsed(), operation);
    lines_.append(text).append(1, '\n');
    writeWhenDue();
}

void TracePort::takeIntoBurst(std::uint8_t byte, std::string_view operation) {
    if (failed_) return;
    const std::int64_t now = elapsed();
    if (burstSize_ == burst_.size() || now - lastByte_ > quietEndsBurst) endBurst();
    if (burstSize_ == 0) burstTime_ = now;
    burstOperation_ = operation;
    lastByte_ = now;
    burst_[burstSize_++] = static_cast<char>(byte);
}

void TracePort::endBurst() {
    if (burstSize_ == 0 || failed_) return;
    bytesLines(burstTime_, burstOperation_, {burst_.data(), burstSize_});
    burstSize_ = 0;
    writeWhenDue();
}

void TracePort::endQuietBurst() {
    if (burstSize_ != 0 && elapsed() - lastByte_ > quietEndsBurst) endBurst();
}

void TracePort::writeWhenDue() {
    if (lines_.size() >= blockSize || elapsed() - lastWrite_ >= longestGathering) write();
}

void TracePort::write() {
    if (failed_ || lines_.empty()) return;
    try {
        files_.append(file_, asBytes(lines_));
        lastWrite_ = elapsed();
    } catch (const std::exception& error) {
        failed_ = true;
        if (report_) report_(std::string("The transcript ends here, the port goes on: ") + error.what());
    }
    lines_.clear();
}

std::int32_t TracePort::ComOpen(std::string_view device, std::int32_t port, std::int32_t baud,
                                std::int32_t dataBits, std::int32_t parityCode, std::int32_t stopCode,
                                std::int32_t receiveBuffer, std::int32_t transmitBuffer) {
    const std::int32_t result =
        port_.ComOpen(device, port, baud, dataBits, parityCode, stopCode, receiveBuffer, transmitBuffer);
    gone_ = false;
    std::string text = std::string(device) + std::to_string(port) + " " + std::to_string(baud) + " baud";
    note(result == 1 ? "open" : "fail", result == 1 ? text : text + ": " + port_.openProblem());
    return result;
}

std::int32_t TracePort::ComClose(std::int32_t port) {
    const std::int32_t result = port_.ComClose(port);
    note("close", "COM" + std::to_string(port));
    write();
    return result;
}

std::int32_t TracePort::ComStatus(std::int32_t port) {
    const std::int32_t waiting = port_.ComStatus(port);
    endQuietBurst();
    if (waiting < 0 && !gone_) note("gone", std::to_string(waiting));
    gone_ = waiting < 0;
    return waiting;
}

std::int32_t TracePort::Com_Flush(std::int32_t port, std::int32_t buffer) {
    endBurst();
    for (std::int32_t waiting = failed_ ? 0 : port_.ComStatus(port); waiting > 0; --waiting) {
        const std::int32_t byte = port_.ComGetc(port);
        if (byte < 0) break;
        takeIntoBurst(static_cast<std::uint8_t>(byte), "drop");
    }
    endBurst();
    return port_.Com_Flush(port, buffer);
}

std::int32_t TracePort::ComPuts(std::int32_t port, std::string_view text) {
    endBurst();
    const std::int64_t begun = elapsed();
    const std::int32_t result = port_.ComPuts(port, text);
    if (!failed_) bytesLines(begun, "send", text);
    if (result != 1) note("fail", "send " + std::to_string(result));
    writeWhenDue();
    return result;
}

std::int32_t TracePort::ComGetc(std::int32_t port) {
    const std::int32_t byte = port_.ComGetc(port);
    if (byte >= 0) takeIntoBurst(static_cast<std::uint8_t>(byte), "recv");
    return byte;
}

std::int32_t TracePort::ComSleepMS(std::int32_t port, std::int32_t milliseconds) {
    const std::int32_t result = port_.ComSleepMS(port, milliseconds);
    endQuietBurst();
    return result;
}

std::int32_t TracePort::ComSetFlow(std::int32_t port, std::int32_t mode) {
    return port_.ComSetFlow(port, mode);
}

std::int32_t TracePort::ComSetYield(std::int32_t port, std::int32_t yield) {
    return port_.ComSetYield(port, yield);
}

std::int32_t TracePort::ComGetCTSStatus(std::int32_t port) {
    return port_.ComGetCTSStatus(port);
}

} // namespace tarvik
