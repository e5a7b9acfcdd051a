#include "simulator/lcusim/pty_line.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace lcusim {

namespace {

constexpr std::array<std::pair<speed_t, int>, 7> speeds{{{B9600, 9600},
                                                         {B19200, 19200},
                                                         {B38400, 38400},
                                                         {B57600, 57600},
                                                         {B115200, 115200},
                                                         {B4800, 4800},
                                                         {B2400, 2400}}};

std::string failure(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

void closeDescriptor(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

} // namespace

std::string PtyLine::open() {
    const std::string problem = prepare();
    if (!problem.empty()) close();
    return problem;
}

std::string PtyLine::prepare() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 64> name{};
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0 ||
        ptsname_r(master_, name.data(), name.size()) != 0)
        return failure("no pseudo-terminal to be had");
    device_ = name.data();
    slave_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave_ < 0) return failure(device_);

    termios line{};
    if (tcgetattr(slave_, &line) != 0) return failure(device_);
    cfmakeraw(&line);
    cfsetspeed(&line, B9600);
    if (tcsetattr(slave_, TCSANOW, &line) != 0) return failure(device_);

    hosts_ = 0;
    hostSeen_ = false;
    watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_ < 0 || inotify_add_watch(watch_, name.data(), IN_OPEN | IN_CLOSE) < 0) return failure(device_);
    return makeLink();
}

std::string PtyLine::makeLink() const {
    if (link_.empty()) return {};
    std::error_code error;
    if (std::filesystem::is_symlink(link_, error)) std::filesystem::remove(link_, error);
    std::filesystem::create_symlink(device_, link_, error);
    return error ? link_.string() + ": " + error.message() + "; choose another --link" : std::string{};
}

void PtyLine::removeLink() const {
    std::error_code error;
    if (!link_.empty() && std::filesystem::read_symlink(link_, error) == device_)
        std::filesystem::remove(link_, error);
}

void PtyLine::close() {
    if (master_ >= 0) removeLink();
    closeDescriptor(watch_);
    closeDescriptor(slave_);
    closeDescriptor(master_);
    hosts_ = 0;
}

int PtyLine::hostSpeed() const {
    termios line{};
    if (tcgetattr(master_, &line) != 0) return 0;
    const auto* known = std::ranges::find(speeds, cfgetospeed(&line), &std::pair<speed_t, int>::first);
    return known == speeds.end() ? 0 : known->second;
}

void PtyLine::noticeHosts() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = ::read(watch_, buffer.data(), buffer.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += static_cast<ssize_t>(sizeof event + event.len);
            if ((event.mask & IN_OPEN) != 0) ++hosts_;
            hostSeen_ = hostSeen_ || hosts_ > 0;
            if ((event.mask & IN_CLOSE) != 0) --hosts_;
        }
    }
    // What the last host left unread is not for the next one.
    if (hosts_ <= 0) tcflush(slave_, TCIFLUSH);
}

std::size_t PtyLine::read(std::span<std::uint8_t> into) const {
    const ssize_t count = ::read(master_, into.data(), into.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void PtyLine::write(std::span<const std::uint8_t> bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(master_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

} // namespace lcusim
