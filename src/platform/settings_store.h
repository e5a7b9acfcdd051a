// Where settings live: texts by section and key, as the operating system's per-user store keeps them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvik {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    [[nodiscard]] virtual std::optional<std::string> get(std::string_view section,
                                                         std::string_view key) const = 0;
    /// Takes effect on disk with `commit`.
    virtual void set(std::string_view section, std::string_view key, std::string_view value) = 0;
    /// Everything set so far, at once: after a crash at any moment the store holds all of it or none.
    virtual void commit() = 0;
    /// Where the texts lie, for messages.
    [[nodiscard]] virtual std::string where() const = 0;
};

class MemorySettingsStore : public SettingsStore {
  public:
    [[nodiscard]] std::optional<std::string> get(std::string_view section,
                                                 std::string_view key) const override {
        const auto found = values_.find({std::string(section), std::string(key)});
        if (found == values_.end()) return std::nullopt;
        return found->second;
    }
    void set(std::string_view section, std::string_view key, std::string_view value) override {
        values_.insert_or_assign({std::string(section), std::string(key)}, std::string(value));
    }
    void commit() override {}
    [[nodiscard]] std::string where() const override { return "the settings"; }

  private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

} // namespace tarvik
