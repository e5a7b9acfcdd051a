// An open file of the operating system, closed when it goes out of sight.
#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace tarvik {

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

    /// 0, or the `errno` of a write that the system had put off until now.
    int close() {
        if (!isOpen()) return 0;
        return ::close(std::exchange(number_, -1)) == 0 ? 0 : errno;
    }

  private:
    int number_;
};

} // namespace tarvik
