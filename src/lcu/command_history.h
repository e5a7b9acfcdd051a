// The commands typed before, for the arrow keys: up goes back, down comes forward to what was being typed.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tarvik {

class CommandHistory {
  public:
    static constexpr std::size_t kept = 200;

    /// The same command twice in a row counts once.
    void add(const std::string& command) {
        if (!command.empty() && (commands_.empty() || commands_.back() != command)) {
            commands_.push_back(command);
            if (commands_.size() > kept) commands_.erase(commands_.begin());
        }
        at_ = commands_.size();
        draft_.clear();
    }
    /// `typed` is what the box holds; returns what it is to hold.
    std::string older(const std::string& typed) {
        if (at_ == 0) return typed;
        if (at_ == commands_.size()) draft_ = typed;
        return commands_[--at_];
    }
    std::string newer(const std::string& typed) {
        if (at_ == commands_.size()) return typed;
        return ++at_ == commands_.size() ? std::exchange(draft_, {}) : commands_[at_];
    }

  private:
    std::vector<std::string> commands_;
    std::size_t at_ = 0;
    std::string draft_;
};

} // namespace tarvik
