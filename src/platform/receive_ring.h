// The bytes received and not yet read: a ring of fixed size.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace tarvik {

class ReceiveRing {
  public:
    explicit ReceiveRing(std::size_t capacity = 0) : bytes_(capacity) {}

    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] bool full() const { return size_ == bytes_.size(); }
    void clear() { first_ = size_ = 0; }

    /// The longest free stretch that can be filled in one go; then say how much was.
    [[nodiscard]] std::span<std::uint8_t> freeStretch() {
        if (full()) return {};
        const std::size_t end = (first_ + size_) % bytes_.size();
        const std::size_t stretch = std::min(bytes_.size() - end, bytes_.size() - size_);
        return std::span(bytes_).subspan(end, stretch);
    }
    void filled(std::size_t count) { size_ += count; }

    /// Not to be asked of an empty ring.
    [[nodiscard]] std::uint8_t take() {
        const std::uint8_t byte = bytes_[first_];
        first_ = (first_ + 1) % bytes_.size();
        --size_;
        return byte;
    }

  private:
    std::vector<std::uint8_t> bytes_;
    std::size_t first_ = 0;
    std::size_t size_ = 0;
};

} // namespace tarvik
