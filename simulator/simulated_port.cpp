#include "simulator/simulated_port.h"

#include <algorithm>
#include <stdexcept>

namespace lcusim {

using namespace tarvik;

namespace {

/// Where bytes go while no program has the port open.
class Nowhere final : public ByteSink {
  public:
    void take(std::uint8_t, Micros) override {}
};

std::string_view reasonOf(std::int32_t code) {
    switch (code) {
    case portMissing:
        return "There is no such device; plug it in or choose another port.";
    case portBusy:
        return "Another program holds the device; close that program.";
    case portNotPermitted:
        return "You may not open the device; ask to be let in.";
    default:
        return "The device could not be opened.";
    }
}

} // namespace

void SimulatedPort::ReceiveBuffer::open(std::size_t capacity) {
    bytes_.assign(capacity, 0);
    clear();
    overrun_ = 0;
}

void SimulatedPort::ReceiveBuffer::clear() {
    head_ = size_ = 0;
}

void SimulatedPort::ReceiveBuffer::take(std::uint8_t byte, Micros) {
    if (size_ == bytes_.size()) {
        ++overrun_;
        return;
    }
    bytes_[(head_ + size_++) % bytes_.size()] = byte;
}

std::uint8_t SimulatedPort::ReceiveBuffer::next() {
    const std::uint8_t byte = bytes_[head_];
    head_ = (head_ + 1) % bytes_.size();
    --size_;
    return byte;
}

SimulatedPort::SimulatedPort(VirtualClock& clock) : clock_(clock) {}

SimulatedPort::Socket& SimulatedPort::socketOf(std::int32_t port) {
    if (port < 1 || port > 4) throw std::out_of_range("COM ports are numbered 1 to 4");
    return sockets_[static_cast<std::size_t>(port - 1)];
}

void SimulatedPort::connect(std::int32_t port, LcuEngine& engine) {
    socketOf(port) = {.exists = true, .engine = &engine};
}

void SimulatedPort::plugIn(std::int32_t port) {
    socketOf(port) = {.exists = true};
}

void SimulatedPort::refuse(std::int32_t port, std::int32_t code) {
    socketOf(port).exists = true;
    socketOf(port).openResult = code;
}

void SimulatedPort::failNext(std::string operation, std::int32_t code, int times) {
    failures_.push_back({std::move(operation), code, times});
}

void SimulatedPort::whileWaiting(std::function<void()> callback) {
    whileWaiting_ = std::move(callback);
}
void SimulatedPort::setPollCost(Micros micros) {
    pollCost_ = micros;
}
std::int32_t SimulatedPort::openPort() const {
    return open_;
}
int SimulatedPort::baud() const {
    return baud_;
}
std::int64_t SimulatedPort::bytesOverrun() const {
    return received_.overrun();
}
std::string SimulatedPort::openProblem() const {
    return openProblem_;
}

std::int32_t SimulatedPort::usable(std::int32_t port) const {
    if (open_ == 0 || port != open_) return portFailed;
    return gone_ ? portGone : 1;
}

std::optional<std::int32_t> SimulatedPort::forced(std::string_view operation) {
    const auto failure = std::ranges::find_if(failures_, [&](const Failure& candidate) {
        return candidate.operation == operation && candidate.times > 0;
    });
    if (failure == failures_.end()) return {};
    --failure->times;
    return failure->code;
}

void SimulatedPort::pass(Micros micros) {
    clock_.advanceMicros(micros);
    if (open_ == 0) return;
    LcuEngine* engine = socketOf(open_).engine;
    if (engine == nullptr || gone_) return;
    engine->advance(clock_.micros(), received_);
    if (engine->lineUp()) return;
    gone_ = true;
    received_.clear(); // what was not read is gone with the device
}

std::int32_t SimulatedPort::openResult(Socket& socket) {
    if (!socket.exists) return portMissing;
    if (open_ != 0) return portBusy;
    if (socket.openResult != 1 || socket.engine == nullptr) return socket.openResult;
    Nowhere nowhere;
    socket.engine->advance(clock_.micros(), nowhere);
    return socket.engine->lineUp() ? 1 : portMissing;
}

std::int32_t SimulatedPort::ComOpen(std::string_view device, std::int32_t port, std::int32_t baud,
                                    std::int32_t dataBits, std::int32_t parityCode, std::int32_t stopCode,
                                    std::int32_t receiveBuffer, std::int32_t) {
    const bool asTheLineWantsIt =
        baud > 0 && dataBits == 8 && parityCode == 1 && stopCode == 1 && receiveBuffer > 0;
    std::int32_t result = portFailed;
    if (const auto code = forced("ComOpen"))
        result = *code;
    else if (device != "COM" || port < 1 || port > 4)
        result = portMissing;
    else if (asTheLineWantsIt)
        result = openResult(socketOf(port));
    openProblem_ = result == 1 ? "" : reasonOf(result);
    if (result != 1) return result;
    open_ = port;
    gone_ = false;
    yields_ = false;
    baud_ = baud;
    received_.open(static_cast<std::size_t>(receiveBuffer));
    if (LcuEngine* engine = socketOf(port).engine) engine->setHostSpeed(baud);
    return 1;
}

std::int32_t SimulatedPort::ComClose(std::int32_t port) {
    if (open_ == 0 || port != open_) return portFailed;
    open_ = 0;
    baud_ = 0;
    return 1;
}

std::int32_t SimulatedPort::ComStatus(std::int32_t port) {
    pass(pollCost_);
    if (const auto code = forced("ComStatus")) return *code;
    const std::int32_t code = usable(port);
    return code == 1 ? static_cast<std::int32_t>(received_.size()) : code;
}

std::int32_t SimulatedPort::Com_Flush(std::int32_t port, std::int32_t buffer) {
    if (const auto code = forced("Com_Flush")) return *code;
    if (usable(port) == 1 && buffer == 1) received_.clear();
    return usable(port);
}

std::int32_t SimulatedPort::ComPuts(std::int32_t port, std::string_view text) {
    if (const auto code = forced("ComPuts")) return *code;
    if (const std::int32_t code = usable(port); code != 1) return code;
    if (LcuEngine* engine = socketOf(port).engine)
        engine->hear({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, clock_.micros());
    return 1;
}

std::int32_t SimulatedPort::ComGetc(std::int32_t port) {
    if (const auto code = forced("ComGetc")) return *code;
    if (const std::int32_t code = usable(port); code != 1) return code;
    return received_.size() == 0 ? portFailed : static_cast<std::int32_t>(received_.next());
}

std::int32_t SimulatedPort::ComSleepMS(std::int32_t, std::int32_t milliseconds) {
    pass(std::max(0, milliseconds) * millisecond);
    if (yields_ && whileWaiting_) whileWaiting_();
    return forced("ComSleepMS").value_or(1);
}

std::int32_t SimulatedPort::ComSetFlow(std::int32_t port, std::int32_t) {
    return forced("ComSetFlow").value_or(usable(port));
}

std::int32_t SimulatedPort::ComSetYield(std::int32_t port, std::int32_t yield) {
    if (const auto code = forced("ComSetYield")) return *code;
    yields_ = yield == 1;
    return usable(port);
}

std::int32_t SimulatedPort::ComGetCTSStatus(std::int32_t port) {
    return forced("ComGetCTSStatus").value_or(usable(port));
}

} // namespace lcusim
