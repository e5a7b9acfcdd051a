// Standard input as lines, without ever waiting longer than told.
#pragma once

#include <string>
#include <vector>

namespace tarvik {

class InputLines {
  public:
    /// The whole lines that have come; waits for the first at most `waitMs`. The last line may lack its end.
    [[nodiscard]] std::vector<std::string> take(int waitMs);
    [[nodiscard]] bool ended() const { return ended_; }

  private:
    std::string partial_;
    bool ended_ = false;
};

} // namespace tarvik
