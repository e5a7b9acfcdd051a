#include "platform/termios_port.h"

#include "platform/port_problem.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace tarvik {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto yieldEvery = 10ms;
constexpr auto longestSending = 2s;
constexpr std::int32_t largestRing = 1024 * 1024;

struct Speed {
    std::int32_t baud;
    speed_t code;
};
constexpr std::array speeds{Speed{9600, B9600}, Speed{19200, B19200}, Speed{38400, B38400},
                            Speed{57600, B57600}, Speed{115200, B115200}};

/// Errors of a device that was pulled out or whose other end has closed.
bool saysGone(int error) {
    return error == EIO || error == ENODEV || error == ENXIO;
}

/// 0, or an `errno`. A system that takes only a part of the setting calls it a success: it is read back.
int makeRaw(int device, speed_t speed) {
    termios line{};
    if (::tcgetattr(device, &line) != 0) return errno;
    ::cfmakeraw(&line);
    line.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY | INPCK);
    line.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB | PARENB);
    line.c_cflag |= CLOCAL | CREAD;
    line.c_cc[VMIN] = 1; // with 0 a quiet line would read as a hang-up
    line.c_cc[VTIME] = 0;
    ::cfsetispeed(&line, speed);
    ::cfsetospeed(&line, speed);
    if (::tcsetattr(device, TCSANOW, &line) != 0) return errno;

    termios taken{};
    if (::tcgetattr(device, &taken) != 0) return errno;
    const tcflag_t asked = CSIZE | CSTOPB | PARENB | CRTSCTS;
    const bool asAsked = ::cfgetospeed(&taken) == speed && (taken.c_cflag & asked) == CS8;
    return asAsked ? 0 : EINVAL;
}

/// 0, or the `errno` of what was refused. The exclusive mark keeps other users out, the lock keeps out
/// whoever is allowed everything.
int takeLine(int device, speed_t speed) {
    if (::isatty(device) == 0) return errno == EIO ? EIO : ENOTTY;
    if (::flock(device, LOCK_EX | LOCK_NB) != 0) return errno;
    if (::ioctl(device, TIOCEXCL) != 0) return errno;
    if (const int error = makeRaw(device, speed); error != 0) return error;
    return ::tcflush(device, TCIOFLUSH) == 0 ? 0 : errno;
}

timespec asTimespec(steady_clock::duration time) {
    const auto whole = std::chrono::floor<std::chrono::seconds>(time);
    return {.tv_sec = static_cast<time_t>(whole.count()),
            .tv_nsec = static_cast<long>(std::chrono::nanoseconds(time - whole).count())};
}

} // namespace

TermiosPort::TermiosPort(PortDevices devices, std::function<void()> yield)
    : devices_(std::move(devices)), yield_(std::move(yield)) {}

std::int32_t TermiosPort::ComOpen(std::string_view, std::int32_t port, std::int32_t baud,
                                  std::int32_t dataBits, std::int32_t parityCode, std::int32_t stopCode,
                                  std::int32_t receiveBuffer, std::int32_t) {
    close();
    const auto refuse = [&](PortProblem problem) {
        problem_ = std::move(problem.sentence);
        return problem.code;
    };
    const auto speed = std::ranges::find(speeds, baud, &Speed::baud);
    if (speed == speeds.end() || dataBits != 8 || parityCode != 1 || stopCode != 1 || receiveBuffer < 1)
        return refuse({portFailed, "These settings of a serial line are not supported."});
    const auto named = devices_.find(port);
    if (named == devices_.end()) return refuse(portWithoutDevice(port));

    Descriptor device(::open(named->second.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    const int error = device.isOpen() ? takeLine(device.number(), speed->code) : errno;
    if (error != 0) return refuse(portProblem(error, port, named->second));

    problem_.clear();
    ring_ = ReceiveRing(static_cast<std::size_t>(std::min(receiveBuffer, largestRing)));
    device_ = std::move(device);
    openPort_ = port;
    gone_ = yielding_ = false;
    return 1;
}

std::int32_t TermiosPort::ComClose(std::int32_t port) {
    if (!isOpen(port)) return portFailed;
    close();
    return 1;
}

void TermiosPort::close() {
    if (!device_.isOpen()) return;
    ::ioctl(device_.number(), TIOCNXCL); // outlives us where somebody else has the device open, too
    device_.close();
    ring_.clear();
    openPort_ = 0;
}

std::size_t TermiosPort::drain() {
    std::size_t moved = 0;
    while (!gone_ && !ring_.full()) {
        const auto room = ring_.freeStretch();
        const ssize_t got = ::read(device_.number(), room.data(), room.size());
        if (got > 0) {
            ring_.filled(static_cast<std::size_t>(got));
            moved += static_cast<std::size_t>(got);
        } else if (got < 0 && errno == EAGAIN) {
            break;
        } else if (got == 0 || errno != EINTR) {
            gone_ = true;
        }
    }
    return moved;
}

std::int32_t TermiosPort::ComStatus(std::int32_t port) {
    if (!isOpen(port)) return portFailed;
    drain();
    if (gone_ && ring_.empty()) return portGone;
    return static_cast<std::int32_t>(ring_.size());
}

std::int32_t TermiosPort::Com_Flush(std::int32_t port, std::int32_t buffer) {
    constexpr int enough = 16; // a line that never pauses must not hold us here
    if (!isOpen(port) || buffer != 1) return portFailed;
    ::tcflush(device_.number(), TCIFLUSH);
    for (int round = 0; round < enough; ++round) {
        ring_.clear();
        if (drain() == 0) break;
    }
    ring_.clear();
    return gone_ ? portGone : 1;
}

std::int32_t TermiosPort::ComPuts(std::int32_t port, std::string_view text) {
    if (!isOpen(port)) return portFailed;
    const Instant deadline = steady_clock::now() + longestSending;
    while (!text.empty()) {
        if (gone_) return portGone;
        const ssize_t sent = ::write(device_.number(), text.data(), text.size());
        if (sent >= 0) {
            text.remove_prefix(static_cast<std::size_t>(sent));
        } else if (saysGone(errno)) {
            gone_ = true;
        } else if (errno != EAGAIN && errno != EINTR) {
            return portFailed;
        }
        if (text.empty()) break;
        if (steady_clock::now() >= deadline) return failure();
        waitUntil(deadline, POLLOUT);
    }
    return 1;
}

std::int32_t TermiosPort::ComGetc(std::int32_t port) {
    if (!isOpen(port)) return portFailed;
    if (ring_.empty()) drain();
    return ring_.empty() ? failure() : ring_.take();
}

std::int32_t TermiosPort::ComSleepMS(std::int32_t port, std::int32_t milliseconds) {
    const Instant end = steady_clock::now() + std::chrono::milliseconds(std::max(0, milliseconds));
    const bool wasOpen = isOpen(port);
    for (;;) {
        if (device_.isOpen()) drain();
        yieldWhenDue();
        if (steady_clock::now() >= end) break;
        const Instant next = yielding_ && yield_ ? std::min(end, lastYield_ + yieldEvery) : end;
        waitUntil(next, ring_.full() ? short{0} : short{POLLIN});
    }
    return wasOpen ? 1 : portFailed;
}

void TermiosPort::waitUntil(Instant moment, short events) {
    const auto left = std::max(steady_clock::duration::zero(), moment - steady_clock::now());
    const timespec time = asTimespec(left);
    pollfd device{.fd = gone_ ? -1 : device_.number(), .events = events, .revents = 0}; // -1: time alone
    if (::ppoll(&device, 1, &time, nullptr) <= 0) return;
    if ((device.revents & (POLLHUP | POLLERR | POLLNVAL)) == 0) return;
    drain();
    gone_ = true;
}

void TermiosPort::yieldWhenDue() {
    if (!yielding_ || !yield_) return;
    const Instant now = steady_clock::now();
    if (now - lastYield_ < yieldEvery) return;
    lastYield_ = now;
    yield_();
}

std::int32_t TermiosPort::ComSetFlow(std::int32_t port, std::int32_t mode) {
    constexpr std::int32_t off = 2; // and off it is since the opening
    return isOpen(port) && mode == off ? 1 : portFailed;
}

std::int32_t TermiosPort::ComSetYield(std::int32_t port, std::int32_t yield) {
    if (!isOpen(port)) return portFailed;
    yielding_ = yield != 0;
    return 1;
}

std::int32_t TermiosPort::ComGetCTSStatus(std::int32_t port) {
    if (!isOpen(port)) return portFailed;
    int lines = 0;
    if (::ioctl(device_.number(), TIOCMGET, &lines) != 0) return failure();
    return (lines & TIOCM_CTS) != 0 ? 1 : 0;
}

} // namespace tarvik
