// Runs an engine behind a pseudo-terminal in real time, or a number of times faster.
#pragma once

#include "simulator/lcu_engine.h"
#include "simulator/lcusim/pty_line.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace lcusim {

class PtyServer final : public ByteSink {
  public:
    /// `timeFactor` 10 lets the box live ten seconds a second, its line rate included.
    PtyServer(LcuEngine& engine, PtyLine& line, double timeFactor, bool exitAfterClose);

    /// Prints the path of the line, then serves until SIGINT, SIGTERM or, when asked to, until two seconds
    /// after the host has closed its port. Empty on an orderly end, else what went wrong.
    [[nodiscard]] std::string serve(std::ostream& out);

    void take(std::uint8_t byte, Micros) override { toHost_.push_back(byte); }

  private:
    [[nodiscard]] Micros boxTime() const;
    [[nodiscard]] std::string followLine(std::ostream& out);
    void exchange();
    void waitForSomething(int signals);
    [[nodiscard]] bool deserted();

    LcuEngine& engine_;
    PtyLine& line_;
    double timeFactor_;
    bool exitAfterClose_;
    Micros startedAt_;
    int speed_ = 0;
    Micros desertedAt_ = never; ///< real time
    std::vector<std::uint8_t> toHost_;
};

} // namespace lcusim
