#include "simulator/lcusim/pty_server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace lcusim {

namespace {

constexpr Micros shortestNap = millisecond; ///< bytes that follow closely are passed on together
constexpr Micros graceAfterClose = 2 * second;

Micros realTime() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<Micros>(now.tv_sec) * second + now.tv_nsec / 1000;
}

/// SIGINT and SIGTERM as something to poll, for as long as it lives.
class SignalDescriptor {
  public:
    SignalDescriptor() {
        sigset_t wanted;
        sigemptyset(&wanted);
        sigaddset(&wanted, SIGINT);
        sigaddset(&wanted, SIGTERM);
        sigprocmask(SIG_BLOCK, &wanted, &before_);
        descriptor_ = signalfd(-1, &wanted, SFD_NONBLOCK | SFD_CLOEXEC);
    }
    ~SignalDescriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
        sigprocmask(SIG_SETMASK, &before_, nullptr);
    }
    SignalDescriptor(const SignalDescriptor&) = delete;
    SignalDescriptor& operator=(const SignalDescriptor&) = delete;
    [[nodiscard]] int get() const { return descriptor_; }
    /// True when one has come; it is thereby dealt with.
    [[nodiscard]] bool take() const {
        signalfd_siginfo signal{};
        return ::read(descriptor_, &signal, sizeof signal) > 0;
    }

  private:
    sigset_t before_{};
    int descriptor_ = -1;
};

} // namespace

PtyServer::PtyServer(LcuEngine& engine, PtyLine& line, double timeFactor, bool exitAfterClose)
    : engine_(engine),
      line_(line),
      timeFactor_(timeFactor),
      exitAfterClose_(exitAfterClose),
      startedAt_(realTime()) {
    toHost_.reserve(8192);
}

Micros PtyServer::boxTime() const {
    return static_cast<Micros>(static_cast<double>(realTime() - startedAt_) * timeFactor_);
}

std::string PtyServer::serve(std::ostream& out) {
    const SignalDescriptor signals;
    if (signals.get() < 0) return std::string("signals: ") + std::strerror(errno);
    do {
        exchange();
        if (std::string problem = followLine(out); !problem.empty()) return problem;
        if (deserted()) break;
        waitForSomething(signals.get());
    } while (!signals.take());
    line_.close();
    return {};
}

/// The pseudo-terminal goes when the box's line hangs up, and comes back as a new one.
std::string PtyServer::followLine(std::ostream& out) {
    if (!engine_.lineUp()) {
        line_.close();
        return {};
    }
    if (line_.isOpen()) return {};
    if (std::string problem = line_.open(); !problem.empty()) return problem;
    speed_ = 0;
    out << line_.path() << std::endl;
    return {};
}

void PtyServer::exchange() {
    const Micros now = boxTime();
    if (line_.isOpen()) {
        line_.noticeHosts();
        if (const int speed = line_.hostSpeed(); speed != 0 && speed != speed_)
            engine_.setHostSpeed(speed_ = speed);
        std::array<std::uint8_t, 512> heard{};
        while (const std::size_t count = line_.read(heard)) engine_.hear(std::span(heard).first(count), now);
    }
    engine_.advance(now, *this);
    if (line_.isOpen() && line_.hostPresent()) line_.write(toHost_);
    toHost_.clear();
}

bool PtyServer::deserted() {
    if (!exitAfterClose_ || !line_.isOpen()) return false;
    if (!line_.hostSeen() || line_.hostPresent())
        desertedAt_ = never;
    else if (desertedAt_ == never)
        desertedAt_ = realTime();
    return desertedAt_ != never && realTime() - desertedAt_ >= graceAfterClose;
}

void PtyServer::waitForSomething(int signals) {
    std::array<pollfd, 3> watched{{{signals, POLLIN, 0}, // a negative descriptor is passed over
                                   {line_.dataDescriptor(), POLLIN, 0},
                                   {line_.watchDescriptor(), POLLIN, 0}}};
    Micros nap = never;
    if (const Micros next = engine_.nextEvent(); next != never)
        nap = static_cast<Micros>(static_cast<double>(next - boxTime()) / timeFactor_);
    if (desertedAt_ != never) nap = std::min(nap, desertedAt_ + graceAfterClose - realTime());
    nap = std::max(nap, shortestNap);
    const timespec limit{.tv_sec = nap / second, .tv_nsec = nap % second * 1000};
    ppoll(watched.data(), watched.size(), nap == never ? nullptr : &limit, nullptr);
}

} // namespace lcusim
