#include "lcu/diagnostics_acquisition.h"

#include <algorithm>
#include <string>

namespace tarvik {

namespace {

constexpr std::int32_t receiveSide = 1;
constexpr std::int32_t momentMs = 1;
constexpr int lengthNotHonoured = 1; // exit codes of the message, numbered as the overflows of a run
constexpr int moreThanTheScan = 2;

} // namespace

void DiagnosticsAcquisition::resume() {
    received_ = 0;
    polls_ = 0;
    settling_ = true;
    looked_ = false;
    hunt_.clear();
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::look() {
    if (++awake_ > looksWithoutSleep) {
        awake_ = 0;
        if (serial_.ComSleepMS(link_.port, momentMs) != 1) return portLost();
    }
    return lookAtLine();
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::lookAtLine() {
    const std::int32_t waiting = serial_.ComStatus(link_.port);
    if (waiting < 0) return portLost();
    if (settling_) return settle(waiting);
    return waiting > 0 ? take(waiting) : pause();
}

/// Until nothing comes between two looks, or what comes shows where a scan begins.
DiagnosticsAcquisition::Look DiagnosticsAcquisition::settle(std::int32_t waiting) {
    settling_ = waiting > 0 || !looked_;
    looked_ = true;
    for (; waiting > 0; --waiting) {
        const std::int32_t byte = serial_.ComGetc(link_.port);
        if (byte < 0) return portLost();
        hunt_.add(static_cast<std::uint8_t>(byte));
    }
    if (const auto place = hunt_.found(); settling_ && place) {
        settling_ = false;
        length_ = static_cast<int>(place->length);
        received_ = static_cast<int>(place->begun);
        std::ranges::copy(hunt_.latest(place->begun), buffer_.begin());
    }
    return pause();
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::take(std::int32_t waiting) {
    if (received_ == 0) {
        const std::int32_t length = serial_.ComGetc(link_.port);
        if (length < 0) return portLost();
        length_ = std::max(length, 1);
        buffer_[0] = static_cast<std::uint8_t>(length);
        received_ = 1;
        --waiting;
        if (length == 0) {
            sayTooMany(lengthNotHonoured, 0, received_ + waiting);
            return giveUp();
        }
    }
    const std::int32_t wanted = std::min({waiting, length_ - received_, bytesPerLook});
    for (std::int32_t i = 0; i < wanted; ++i) {
        const std::int32_t byte = serial_.ComGetc(link_.port);
        if (byte < 0) return portLost();
        buffer_[static_cast<std::size_t>(received_++)] = static_cast<std::uint8_t>(byte);
    }
    waiting -= wanted;
    if (received_ == length_) return waiting > 0 ? moreBehind(waiting) : scanArrived();
    return waiting > 0 ? Look::nothing : pause();
}

/// More waits than the scan holds. When it begins like another scan of the stream the scans come faster than
/// they are looked for, and none is lost; else nothing tells where the next one begins.
DiagnosticsAcquisition::Look DiagnosticsAcquisition::moreBehind(std::int32_t waiting) {
    const std::int32_t next = serial_.ComGetc(link_.port);
    if (next < 0) return portLost();
    const bool another = next == length_;
    if (!another || calm_ >= calmScans) sayTooMany(moreThanTheScan, length_, received_ + waiting);
    calm_ = 0;
    if (!another) return giveUp();
    const Look scan = scanArrived();
    received_ = 1; // the length byte is that of the scan before
    return scan;
}

void DiagnosticsAcquisition::sayTooMany(int exitCode, int expected, std::int32_t count) {
    log_.black("Too many characters in buffer : exit code " + std::to_string(exitCode) + " Expecting " +
               std::to_string(expected) + " Number chars in " + std::to_string(count));
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::giveUp() {
    serial_.Com_Flush(link_.port, receiveSide);
    received_ = 0;
    settling_ = true;
    hunt_.clear();
    return pause();
}

DiagnosticsAcquisition::Look DiagnosticsAcquisition::scanArrived() {
    received_ = 0;
    polls_ = 0;
    calm_ = std::min(calm_ + 1, calmScans);
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
    awake_ = 0;
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
