// Undo and redo of changes to a display. Displays are small values; each state is kept whole.
#pragma once

#include "display/log_display.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace tarvik {

class DisplayHistory {
  public:
    explicit DisplayHistory(LogDisplay first) { states_.push_back(std::move(first)); }

    [[nodiscard]] const LogDisplay& current() const { return states_[at_]; }
    [[nodiscard]] bool canUndo() const { return at_ > 0; }
    [[nodiscard]] bool canRedo() const { return at_ + 1 < states_.size(); }

    /// What had been undone is gone. A display that is drawn as the current one is no change.
    void change(LogDisplay next) {
        if (isDrawnAs(current(), next)) return;
        states_.resize(at_ + 1);
        states_.push_back(std::move(next));
        if (states_.size() > most) states_.erase(states_.begin());
        at_ = states_.size() - 1;
    }
    void undo() { at_ -= canUndo() ? 1U : 0U; }
    void redo() { at_ += canRedo() ? 1U : 0U; }

    static constexpr std::size_t most = 100;

  private:
    [[nodiscard]] static bool isDrawnAs(const LogDisplay& one, const LogDisplay& other) {
        return one.tracks == other.tracks && one.depthPlace == other.depthPlace &&
               one.depthTrack == other.depthTrack && one.marks == other.marks;
    }

    std::vector<LogDisplay> states_;
    std::size_t at_ = 0;
};

} // namespace tarvik
