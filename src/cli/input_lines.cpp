#include "cli/input_lines.h"

#include <array>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace tarvik {

std::vector<std::string> InputLines::take(int waitMs) {
    std::vector<std::string> lines;
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    if (ended_ || ::poll(&input, 1, waitMs) <= 0) return lines;
    std::array<char, 4096> block{};
    const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
    if (count <= 0) {
        ended_ = true;
        if (!partial_.empty()) lines.push_back(std::exchange(partial_, {}));
        return lines;
    }
    partial_.append(block.data(), static_cast<std::size_t>(count));
    for (std::size_t end = partial_.find('\n'); end != std::string::npos; end = partial_.find('\n')) {
        lines.push_back(partial_.substr(0, end));
        partial_.erase(0, end + 1);
    }
    return lines;
}

} // namespace tarvik
