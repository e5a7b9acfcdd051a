// A serial port that answers by script and writes down what happens on the wire. Its sleeps move the clock.
#pragma once

#include "platform/serial_port.h"
#include "platform/virtual_clock.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarvik::test {

class ScriptedPort final : public SerialPort {
  public:
    struct Piece {
        std::string bytes;
        int afterMs = 5;
    };
    using Reply = std::vector<Piece>;

    explicit ScriptedPort(VirtualClock& clock) : clock_(clock) {}

    /// What comes back each time the text is sent: the replies in order, the last one again and again.
    void answer(const std::string& text, std::vector<Reply> replies) {
        replies_[text + "\n"] = std::deque(replies.begin(), replies.end());
    }
    void put(std::string_view bytes, int afterMs = 0) {
        for (const char byte : bytes) line_.emplace_back(clock_.tickMs() + afterMs, byte);
    }

    std::string wire; ///< texts as sent, sleeps as "<250>"
    std::vector<std::string> opened;
    std::function<std::int32_t(std::int32_t port, std::int32_t baud)> openResult = [](auto, auto) {
        return 1;
    };
    std::function<void()> whileSleeping = [] {};
    std::function<void()> atYield; ///< the screens, while yielding is on
    bool yields = true;
    std::int32_t setUpResult = 1; ///< of flow and yield
    bool gone = false;

    std::int32_t ComOpen(std::string_view device, std::int32_t port, std::int32_t baud, std::int32_t dataBits,
                         std::int32_t parity, std::int32_t stop, std::int32_t receive,
                         std::int32_t transmit) override {
        opened.push_back(std::string(device) + std::to_string(port) + "@" + std::to_string(baud));
        lineSettings = {dataBits, parity, stop, receive, transmit};
        line_.clear();
        return openResult(port, baud);
    }
    std::int32_t ComClose(std::int32_t port) override {
        opened.push_back("-" + std::to_string(port));
        return 1;
    }
    std::int32_t ComStatus(std::int32_t) override {
        if (gone) return portGone;
        std::int32_t count = 0;
        for (const auto& [at, byte] : line_) count += at <= clock_.tickMs() ? 1 : 0;
        return count;
    }
    std::int32_t Com_Flush(std::int32_t, std::int32_t) override {
        while (ComStatus(1) > 0) line_.pop_front();
        return 1;
    }
    std::int32_t ComPuts(std::int32_t, std::string_view text) override {
        wire += text;
        if (gone) return portGone;
        if (const auto found = replies_.find(std::string(text)); found != replies_.end()) {
            for (const Piece& piece : found->second.front()) put(piece.bytes, piece.afterMs);
            if (found->second.size() > 1) found->second.pop_front();
        }
        return 1;
    }
    std::int32_t ComGetc(std::int32_t) override {
        if (ComStatus(1) <= 0) return -1;
        const auto byte = static_cast<unsigned char>(line_.front().second);
        line_.pop_front();
        return byte;
    }
    std::int32_t ComSleepMS(std::int32_t, std::int32_t ms) override {
        wire += "<" + std::to_string(ms) + ">";
        clock_.advanceMs(ms);
        whileSleeping();
        if (yields && atYield) atYield();
        return gone ? portGone : 1;
    }
    std::int32_t ComSetFlow(std::int32_t, std::int32_t mode) override { return mode == 2 ? setUpResult : -7; }
    std::int32_t ComSetYield(std::int32_t, std::int32_t yield) override {
        yields = yield == 1;
        return yield == 1 || yield == 0 ? setUpResult : -8;
    }
    std::int32_t ComGetCTSStatus(std::int32_t) override { return -1; }
    [[nodiscard]] std::string openProblem() const override { return "COM1 is held by another program."; }

    std::vector<std::int32_t> lineSettings;

  private:
    VirtualClock& clock_;
    std::map<std::string, std::deque<Reply>> replies_;
    std::deque<std::pair<std::int64_t, char>> line_;
};

} // namespace tarvik::test
