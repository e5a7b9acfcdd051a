// While it lives a run goes on: no box waits for the operator, no command starts, the program does not end.
#pragma once

#include "app/link_state.h"
#include "app/program_state.h"

namespace tarvik {

class RunOwnership {
  public:
    RunOwnership(LinkState& link, ProgramState& state) : link_(link), state_(state) { set(true); }
    ~RunOwnership() { set(false); }
    RunOwnership(const RunOwnership&) = delete;
    RunOwnership& operator=(const RunOwnership&) = delete;

  private:
    void set(bool owned) { link_.acquiring = state_.logging = owned; }

    LinkState& link_;
    ProgramState& state_;
};

} // namespace tarvik
