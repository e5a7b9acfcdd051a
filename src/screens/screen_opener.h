// Opens screens by their name. A screen that is not built says so in a dialog of its own.
#pragma once

#include "app/frame.h"
#include "screens/acquisition.h"
#include "screens/desktop_memory.h"
#include "screens/intro_screen.h"
#include "screens/review_session.h"

namespace tarvik {

class ScreenOpener {
  public:
    ScreenOpener(Program& program, IntroScreen& parent, DesktopMemory& memory, ReviewSession& review,
                 Acquisition& acquisition)
        : program_(program), parent_(parent), memory_(memory), review_(review), acquisition_(acquisition) {}

    /// Returns when the screen is closed, if it is modal.
    void open(const ScreenRequest& request);
    /// Asked before the stream starts.
    [[nodiscard]] RunChoice chooseRun(const LoggingRuns& runs, std::string_view depthRangeText);

  private:
    struct Screen;

    Program& program_;
    IntroScreen& parent_;
    DesktopMemory& memory_;
    ReviewSession& review_;
    Acquisition& acquisition_;
};

} // namespace tarvik
