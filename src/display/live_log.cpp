#include "display/live_log.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {
constexpr std::size_t columnLength = 2 * AcquisitionRing::capacity;

/// Ten steps of the sampling, as for a run that is finished. By time the winch may do what it likes.
double joinLimitOf(const RunSetup& setup) {
    return setup.sampling == Sampling::depth ? 10 * double{setup.interval} / 100 : 0;
}
} // namespace

void LiveLog::begin(const RunHeader& header) {
    channels_.clear();
    units_ = header.setup.units;
    sampledByTime_ = header.setup.sampling == Sampling::time;
    joinLimit_ = joinLimitOf(header.setup);
    channels_.push_back({"Speed", units_ == DepthUnits::metres ? "M/min" : "FT/Min", true, 0,
                         std::vector<float>(columnLength)});
    std::size_t number = 0;
    for (const RunChannel& channel : header.channels) {
        // Speed stands first in a run and has no number among the channels of a scan.
        if (number == 0 && channel.name == "Speed") continue;
        if (++number > static_cast<std::size_t>(maxChannels)) break;
        channels_.push_back({channel.name, channel.unit, channel.calibration.state != "None", number,
                             std::vector<float>(columnLength)});
    }
    depth_.assign(columnLength, 0);
    time_.assign(columnLength, 0);
    start_ = size_ = seen_ = fresh_ = 0;
}

std::size_t LiveLog::follow(const AcquisitionRing& ring) {
    if (ring.kept() < seen_) { // cleared for another run
        seen_ = start_ = size_ = 0;
    }
    fresh_ = std::min(ring.kept() - seen_, ring.size());
    for (std::size_t i = ring.size() - fresh_; i < ring.size(); ++i) take(ring.fromOldest(i));
    seen_ = ring.kept();
    return fresh_;
}

void LiveLog::take(const AcquisitionPoint& point) {
    if (depth_.empty()) return;
    if (start_ + size_ == columnLength) makeRoom();
    const std::size_t at = start_ + size_;
    depth_[at] = point.depth;
    time_[at] = point.seconds;
    for (Channel& channel : channels_) {
        channel.values[at] = channel.number == 0 ? speedAt(at) : point.values[channel.number];
    }
    if (size_ == AcquisitionRing::capacity) {
        ++start_;
    } else {
        ++size_;
    }
}

float LiveLog::speedAt(std::size_t at) const {
    if (size_ == 0 || time_[at] <= time_[at - 1]) return 0;
    const double metres = std::abs(depth_[at] - depth_[at - 1]);
    return static_cast<float>(fromMetres(metres, units_) / (time_[at] - time_[at - 1]) * 60);
}

void LiveLog::makeRoom() {
    const auto moveToFront = [this](auto& column) {
        const auto first = column.begin() + static_cast<std::ptrdiff_t>(start_);
        std::copy(first, first + static_cast<std::ptrdiff_t>(size_), column.begin());
    };
    moveToFront(depth_);
    moveToFront(time_);
    for (Channel& channel : channels_) moveToFront(channel.values);
    start_ = 0;
}

LogData LiveLog::data() const {
    LogData data;
    data.depth = std::span(depth_).subspan(start_, size_);
    data.time = std::span(time_).subspan(start_, size_);
    for (const Channel& channel : channels_) {
        data.channels.push_back({channel.name, channel.unit, channel.calibrated,
                                 std::span(channel.values).subspan(start_, size_)});
    }
    data.firstStep = seen_ - size_;
    data.revision = seen_;
    data.sampledByTime = sampledByTime_;
    data.joinLimit = joinLimit_;
    return data;
}

std::optional<Band> LiveLog::changed(Axis axis) const {
    if (fresh_ == 0 || size_ == 0) return std::nullopt;
    const auto& column = axis == Axis::depth ? depth_ : time_;
    const std::size_t end = start_ + size_;
    const std::size_t first = end - std::min(size_, fresh_ + 1);
    const auto [least, most] = std::minmax_element(column.begin() + static_cast<std::ptrdiff_t>(first),
                                                   column.begin() + static_cast<std::ptrdiff_t>(end));
    return Band{*least, *most};
}

double followShift(const DisplayView& view, double bodyHeight, double position, bool movingUp) {
    const double y = view.yOf(position);
    const double ahead = bodyHeight / 5;
    if (y >= 0 && y <= bodyHeight) return 0;
    return std::round(movingUp ? y - ahead : y - (bodyHeight - ahead));
}

} // namespace tarvik
