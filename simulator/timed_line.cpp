#include "simulator/timed_line.h"

#include <algorithm>

namespace lcusim {

bool TimedLine::push(const LineByte& byte) {
    if (size_ == ring_.size()) return false;
    at(size_++) = byte;
    return true;
}

std::int64_t TimedLine::dueNanos() const {
    const LineByte& first = ring_[head_];
    return std::max(freeAtNanos_, first.notBefore * 1000) + (first.withPrevious ? 0 : nanosPerByte_);
}

Micros TimedLine::dueAt() const {
    return size_ == 0 ? never : (dueNanos() + 999) / 1000;
}

LineByte TimedLine::pop() {
    freeAtNanos_ = dueNanos();
    const LineByte first = ring_[head_];
    head_ = (head_ + 1) % ring_.size();
    --size_;
    scanUnderWay_ = first.lastOfScan ? 0 : first.scan;
    return first;
}

void TimedLine::withdrawScansNotBegun() {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < size_; ++i) {
        const LineByte byte = at(i);
        if (byte.scan == 0 || byte.scan == scanUnderWay_) at(kept++) = byte;
    }
    size_ = kept;
}

} // namespace lcusim
