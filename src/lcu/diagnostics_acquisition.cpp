#include "lcu/diagnostics_acquisition.h"

#include <algorithm>
#include <string>

namespace tarvik {

namespace {

constexpr std::int32_t receiveSide = 1;
constexpr int lengthNotHonoured = 1; // exit codes of the message, numbered as the overflows of a run
constexpr int moreThanTheScan = 2;

} // namespace

void DiagnosticsAcquisition::resume() {
    received_ = 0;
    polls_ = 0;
    settling_ = true;
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::look() {
    const std::int32_t waiting = serial_.ComStatus(link_.port);
    if (waiting < 0) return portLost();
    if (settling_) {
        settle(waiting);
        return pause();
    }
    return waiting > 0 ? take(waiting) : pause();
}

void DiagnosticsAcquisition::settle(std::int32_t waiting) {
    if (waiting > 0) serial_.Com_Flush(link_.port, receiveSide);
    settling_ = waiting > 0;
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::take(std::int32_t waiting) {
    if (received_ == 0) {
        const std::int32_t length = serial_.ComGetc(link_.port);
        if (length < 0) return portLost();
        length_ = std::max(length, 1);
        buffer_[0] = static_cast<std::uint8_t>(length);
        received_ = 1;
        --waiting;
        if (length == 0) return tooMany(lengthNotHonoured, waiting);
    }
    if (waiting > length_ - received_) return tooMany(moreThanTheScan, waiting);
    const int wanted = std::min(waiting, bytesPerLook);
    for (int i = 0; i < wanted; ++i) {
        const std::int32_t byte = serial_.ComGetc(link_.port);
        if (byte < 0) return portLost();
        buffer_[static_cast<std::size_t>(received_++)] = static_cast<std::uint8_t>(byte);
    }
    return received_ == length_ ? scanArrived() : pause();
}

/// Nothing in the stream says where the next scan begins: all is given up until the line is quiet.
DiagnosticsAcquisition::Look DiagnosticsAcquisition::tooMany(int exitCode, std::int32_t waiting) {
    const int expected = exitCode == lengthNotHonoured ? 0 : length_;
    log_.black("Too many characters in buffer : exit code " + std::to_string(exitCode) + " Expecting " +
               std::to_string(expected) + " Number chars in " + std::to_string(received_ + waiting));
    serial_.Com_Flush(link_.port, receiveSide);
    received_ = 0;
    settling_ = true;
    return pause();
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::scanArrived() {
    received_ = 0;
    polls_ = 0;
    seen_ = true;
    if (lost_) log_.blue("Communications re-established");
    lost_ = false;
    return Look::scan;
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::portLost() {
    linkLost();
    resume();
    return Look::gone;
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::pause() {
    if (serial_.ComSleepMS(link_.port, pollMs) != 1) return portLost();
    if (++polls_ < pollsPerScan) return Look::nothing;
    log_.red("Time-out waiting for LCU data");
    if (seen_) linkLost();
    resume();
    return Look::nothing;
}

void DiagnosticsAcquisition::linkLost() {
    if (!lost_) log_.red("Communications lost");
    lost_ = true;
}

} // namespace tarvik
