// Writes one flat JSON object, a line for each member.
#pragma once

#include <string>
#include <string_view>

namespace tarvik {

/// Bytes that are no UTF-8 (a file's name may hold them) become U+FFFD.
[[nodiscard]] std::string jsonString(std::string_view utf8);
/// The shortest decimal; null for what JSON has no number for.
[[nodiscard]] std::string jsonNumber(double value);
[[nodiscard]] std::string jsonNumber(float value);

class JsonObject {
  public:
    void add(std::string_view name, std::string_view value) { raw(name, jsonString(value)); }
    void add(std::string_view name, double value) { raw(name, jsonNumber(value)); }
    /// `json` as it stands.
    void raw(std::string_view name, std::string_view json) {
        body_ += (body_.empty() ? "  " : ",\n  ") + jsonString(name) + ": " + std::string(json);
    }
    [[nodiscard]] std::string text() const { return "{\n" + body_ + "\n}\n"; }

  private:
    std::string body_;
};

} // namespace tarvik
