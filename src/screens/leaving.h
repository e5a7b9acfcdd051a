// The way out of the program: what is under way is ended first, in order, with a question only where
// something could be lost.
#pragma once

#include "screens/acquisition.h"
#include "screens/demonstration.h"
#include "screens/link_gate.h"

#include <functional>

namespace tarvik {

struct LeavingActions {
    std::function<void()> cancelSearch;
    std::function<void()> exit; ///< the command, with its own question
};

class Leaving {
  public:
    /// All outlive it.
    Leaving(Program& program, IntroScreen& screen, LinkGate& gate, Acquisition& acquisition,
            Demonstration& demonstration, LeavingActions actions);

    /// The operator closes the window. A search is cancelled, a run is asked about, then comes the exit
    /// command.
    void requested();
    /// Once a second: a search that was cancelled has ended by now.
    void lookAgain();
    /// Asked to close in a search: what that leads to is no longer wanted.
    [[nodiscard]] bool pending() const { return afterSearch_; }
    /// Once a second, when the machine asks for the end: a step nearer to it, without a question.
    void stepByStep();
    /// The display has gone, and nothing that waits goes on: a run is closed in its place.
    void unseen();

  private:
    void offerToStop();
    void afterRun();
    void stopDemonstration();

    Program& program_;
    IntroScreen& screen_;
    LinkGate& gate_;
    Acquisition& acquisition_;
    Demonstration& demonstration_;
    LeavingActions actions_;
    bool afterSearch_ = false;
};

} // namespace tarvik
