#include "cli/json.h"

#include "base/number_picture.h"

#include <cmath>

namespace tarvik {

std::string jsonString(std::string_view utf8) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (byte < ' ') {
            text += "\\u00";
            text += hex[byte >> 4U];
            text += hex[byte & 0xFU];
        } else {
            text += c;
        }
    }
    return text + "\"";
}

std::string jsonNumber(double value) {
    return std::isfinite(value) ? shortestNumber(value) : "null";
}

std::string jsonNumber(float value) {
    return std::isfinite(value) ? shortestNumber(value) : "null";
}

std::string JsonObject::joined(std::string_view separator) const {
    std::string text;
    for (const std::string& member : members_) text.append(text.empty() ? "" : separator).append(member);
    return text;
}

} // namespace tarvik
