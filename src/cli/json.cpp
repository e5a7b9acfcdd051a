#include "cli/json.h"

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

} // namespace tarvik
