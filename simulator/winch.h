// The winch: a drum that starts, runs at a speed, may stall and stops, and the encoder's view of it in metres
// of cable. Between two changes of speed the tool moves evenly, so that the moment of reaching a depth is a
// division.
#pragma once

#include "simulator/options.h"
#include "simulator/random.h"
#include "simulator/units.h"

namespace lcusim {

class Winch {
  public:
    /// A drum that is not steady runs up to a tenth faster or slower than set, and changes its mind.
    Winch(const WinchOptions& options, bool steady, std::uint64_t seed);

    /// The operator starts the drum at a time; direction +1 down, -1 up.
    void startAt(Micros at, int direction);
    void stop();
    void stallUntil(Micros until) { stalledUntil_ = until; }
    /// The operator moves no cable, the counter is set.
    void setDepth(double metres) { depth_ = metres; }

    /// When the speed next changes by itself; `never` when it does not.
    [[nodiscard]] Micros nextChange() const;
    void advance(Micros now);

    [[nodiscard]] double depth() const { return depth_; }
    [[nodiscard]] bool moving() const { return velocity() != 0; }
    /// When the tool gets to a depth at the present speed; `never` when it does not, or not before the next
    /// change.
    [[nodiscard]] Micros timeToReach(double metres) const;

  private:
    [[nodiscard]] double velocity() const; ///< metres a microsecond, positive downwards
    [[nodiscard]] Micros arrival(double metres) const;
    void change();

    WinchOptions options_;
    bool steady_;
    Random random_;
    Micros now_ = 0;
    double depth_;
    int direction_ = 1;
    bool running_ = false;
    Micros startAt_ = never;
    Micros stalledUntil_ = 0;
    double factor_ = 1; ///< of the speed as set
    Micros nextWhim_ = never;
};

} // namespace lcusim
