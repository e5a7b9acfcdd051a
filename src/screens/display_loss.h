// When the display goes away under the program (the server dies, a remote session is cut), the toolkit ends
// the process by exit(), from within whatever waited for events. What must be done first is done here,
// and the process ends behind it.
#pragma once

#include <functional>

namespace tarvik {

class DisplayLoss {
  public:
    /// `act` is done once, when the process exits while this object lives. One object at a time.
    explicit DisplayLoss(std::function<void()> act);
    ~DisplayLoss();
    DisplayLoss(const DisplayLoss&) = delete;
    DisplayLoss& operator=(const DisplayLoss&) = delete;
};

} // namespace tarvik
