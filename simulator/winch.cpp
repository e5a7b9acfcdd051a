#include "simulator/winch.h"

#include <algorithm>
#include <cmath>

namespace lcusim {

Winch::Winch(const WinchOptions& options, bool steady, std::uint64_t seed)
    : options_(options), steady_(steady), random_(seed), depth_(options.startDepth) {}

void Winch::startAt(Micros at, int direction) {
    startAt_ = at;
    direction_ = direction;
}

void Winch::stop() {
    running_ = false;
    startAt_ = never;
    nextWhim_ = never;
}

double Winch::velocity() const {
    if (!running_ || now_ < stalledUntil_) return 0;
    return direction_ * options_.speed * factor_ / (60.0 * static_cast<double>(second));
}

Micros Winch::arrival(double metres) const {
    const double way = metres - depth_;
    const double speed = velocity();
    if (speed == 0 || way / speed < 0) return never;
    return now_ + static_cast<Micros>(std::ceil(way / speed));
}

Micros Winch::nextChange() const {
    Micros next = std::min(startAt_, nextWhim_);
    if (running_ && stalledUntil_ > now_) next = std::min(next, stalledUntil_);
    if (options_.stopDepth) next = std::min(next, arrival(*options_.stopDepth));
    return next;
}

Micros Winch::timeToReach(double metres) const {
    const Micros at = arrival(metres);
    return at <= nextChange() ? at : never;
}

void Winch::advance(Micros now) {
    for (Micros next = nextChange(); next <= now; next = nextChange()) {
        const bool atStop = options_.stopDepth && next == arrival(*options_.stopDepth);
        depth_ = atStop ? *options_.stopDepth : depth_ + velocity() * static_cast<double>(next - now_);
        now_ = next;
        if (atStop) stop();
        change();
    }
    depth_ += velocity() * static_cast<double>(now - now_);
    now_ = now;
}

void Winch::change() {
    if (now_ >= startAt_) {
        running_ = true;
        startAt_ = never;
        if (!steady_) nextWhim_ = now_;
    }
    if (now_ >= nextWhim_) {
        factor_ = random_.between(0.9, 1.1);
        nextWhim_ = now_ + static_cast<Micros>(random_.between(0.3, 2.0) * static_cast<double>(second));
    }
}

} // namespace lcusim
