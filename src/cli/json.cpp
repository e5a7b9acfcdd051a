#include "cli/json.h"

#include "base/number_picture.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// How many of the first bytes are one character of UTF-8; 0 when they are none. Too long a form, a
/// surrogate and anything above U+10FFFF are none.
std::size_t characterLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const unsigned first = at(0), second = at(1);
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0U) != 0x80) return 0;
    }
    const bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool beyond = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
    return tooLong || beyond ? 0 : length;
}

} // namespace

std::string jsonString(std::string_view utf8) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string text = "\"";
    while (!utf8.empty()) {
        const auto byte = static_cast<unsigned char>(utf8.front());
        const std::size_t length = characterLength(utf8);
        if (length == 0) {
            text += "\\ufffd";
        } else if (byte < ' ') {
            text.append("\\u00").append({hex[byte >> 4U], hex[byte & 0xFU]});
        } else {
            if (byte == '"' || byte == '\\') text += '\\';
            text += utf8.substr(0, length);
        }
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
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
