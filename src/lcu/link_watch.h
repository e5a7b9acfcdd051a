// Watches the line of a running log: says when the port has gone, tries it again quietly, and starts the
// stream afresh when a box that came back stays silent.
#pragma once

#include "app/operator_side.h"
#include "app/status_log.h"
#include "lcu/lcu_commands.h"
#include "lcu/lcu_port.h"
#include "platform/clock.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tarvik {

class LinkWatch {
  public:
    static constexpr std::int32_t retryEveryMs = 500;
    static constexpr std::int64_t streamAgainAfterMs = 3000;

    LinkWatch(StatusLog& log, OperatorSide& operatorSide, const Clock& clock, LcuPort& port, LcuCommands& lcu,
              std::string samplingCommand)
        : log_(log),
          operator_(operatorSide),
          clock_(clock),
          port_(port),
          lcu_(lcu),
          samplingCommand_(std::move(samplingCommand)) {}

    [[nodiscard]] bool lost() const { return state_ != State::good; }

    /// The port reports an error: says so once, and tries to open it again.
    void portGone();
    /// The port is open and nothing comes.
    void silent();
    enum class Back { no, sameStream, newStream };
    /// A scan came: whether it is the first one after the line had been lost, and of which stream.
    Back scanCame();

  private:
    enum class State { good, gone, backWithoutScans };

    void sayBack(Back back);

    StatusLog& log_;
    OperatorSide& operator_;
    const Clock& clock_;
    LcuPort& port_;
    LcuCommands& lcu_;
    std::string samplingCommand_;

    State state_ = State::good;
    std::int64_t waitingSince_ = 0;
    std::int64_t lostSince_ = 0;
    bool streamStarted_ = false; ///< afresh, since the line was lost
};

} // namespace tarvik
