#include "platform/tap_port.h"

namespace tarvik {

void TapPort::tellByte(WireDirection direction, std::int32_t byte) {
    if (listener_ == nullptr || byte < 0) return;
    const char character = static_cast<char>(byte);
    listener_->heard(direction, {&character, 1}, clock_.tickMicros());
}

std::int32_t TapPort::Com_Flush(std::int32_t port, std::int32_t buffer) {
    if (listener_ != nullptr) {
        for (std::int32_t waiting = port_.ComStatus(port); waiting > 0; --waiting) {
            tellByte(WireDirection::dropped, port_.ComGetc(port));
        }
    }
    return port_.Com_Flush(port, buffer);
}

std::int32_t TapPort::ComPuts(std::int32_t port, std::string_view text) {
    const std::int32_t result = port_.ComPuts(port, text);
    if (listener_ != nullptr && result == 1) listener_->heard(WireDirection::sent, text, clock_.tickMicros());
    return result;
}

std::int32_t TapPort::ComGetc(std::int32_t port) {
    const std::int32_t byte = port_.ComGetc(port);
    tellByte(WireDirection::received, byte);
    return byte;
}

} // namespace tarvik
