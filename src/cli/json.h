// Writes one flat JSON object, a line for each member.
#pragma once

#include "base/number_picture.h"

#include <string>
#include <string_view>

namespace tarvik {

[[nodiscard]] std::string jsonString(std::string_view utf8);

class JsonObject {
  public:
    void add(std::string_view name, std::string_view value) { raw(name, jsonString(value)); }
    void add(std::string_view name, double value) { raw(name, shortestNumber(value)); }
    /// `json` as it stands.
    void raw(std::string_view name, std::string_view json) {
        body_ += (body_.empty() ? "  " : ",\n  ") + jsonString(name) + ": " + std::string(json);
    }
    [[nodiscard]] std::string text() const { return "{\n" + body_ + "\n}\n"; }

  private:
    std::string body_;
};

} // namespace tarvik
