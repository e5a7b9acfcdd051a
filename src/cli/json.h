// Writes JSON objects member by member, and arrays.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Bytes that are no UTF-8 (a file's name may hold them) become U+FFFD.
[[nodiscard]] std::string jsonString(std::string_view utf8);
/// The shortest decimal; null for what JSON has no number for.
[[nodiscard]] std::string jsonNumber(double value);
[[nodiscard]] std::string jsonNumber(float value);

template <class Items, class ToJson>
[[nodiscard]] std::string jsonArray(const Items& items, ToJson toJson) {
    std::string json = "[";
    for (const auto& item : items) json.append(json.size() > 1 ? ", " : "").append(toJson(item));
    return json + "]";
}

class JsonObject {
  public:
    void add(std::string_view name, std::string_view value) { raw(name, jsonString(value)); }
    void add(std::string_view name, double value) { raw(name, jsonNumber(value)); }
    /// `json` as it stands.
    void raw(std::string_view name, std::string_view json) {
        members_.push_back(jsonString(name) + ": " + std::string(json));
    }
    /// A line for each member.
    [[nodiscard]] std::string text() const { return "{\n  " + joined(",\n  ") + "\n}\n"; }
    [[nodiscard]] std::string inLine() const { return "{" + joined(", ") + "}"; }

  private:
    [[nodiscard]] std::string joined(std::string_view separator) const;

    std::vector<std::string> members_;
};

} // namespace tarvik
