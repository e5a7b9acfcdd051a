// The settings in the per-user store: every key with its section and default, in one table and one order.
//
// Loading: a missing key is its default. A value that does not convert goes to the error log, that key takes
// its default and loading goes on. Saving: all keys of the table but "LogInches", then one commit; what the
// table does not know stays as it is.
#pragma once

#include "app/error_trap.h"
#include "app/settings.h"
#include "base/failure.h"
#include "platform/settings_store.h"

#include <string_view>

namespace tarvik {

/// The conversion error of one key, in words: where, which key, what it holds, what is used instead.
[[nodiscard]] Failure unreadableSetting(ErrorNumber number, const SettingsStore& store,
                                        std::string_view section, std::string_view key, std::string_view text,
                                        std::string_view defaultText);

class StoredSettings {
  public:
    StoredSettings(ErrorTrap& errors, SettingsStore& store) : errors_(errors), store_(store) {}

    [[nodiscard]] Settings Utilities_loadregsettings();
    /// False when the store could not be written; it then holds what it held before.
    bool Utilities_saveregsettings(const Settings& settings);

  private:
    ErrorTrap& errors_;
    SettingsStore& store_;
};

} // namespace tarvik
