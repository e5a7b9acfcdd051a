#include "app/elk_settings.h"

#include "app/stored_settings.h"

#include <algorithm>
#include <string>

namespace tarvik {

namespace {

constexpr std::string_view section = "ELK tool";

void read(const ElkKey& key, const SettingsStore& store, NumberText& value) {
    const auto text = store.get(section, key.name);
    if (!text) return;
    try {
        value = NumberText(*text);
    } catch (const Failure& failure) {
        throw unreadableSetting(failure.number(), store, section, key.name, *text, key.defaultText);
    }
}

} // namespace

ElkSettings defaultElkSettings() {
    ElkSettings settings;
    std::ranges::transform(elkKeys, settings.begin(),
                           [](const ElkKey& key) { return NumberText(key.defaultText); });
    return settings;
}

ElkSettings StoredElkSettings::load() {
    constexpr std::string_view routine = "Utilities_loadelksettings";
    return errors_.run(routine, defaultElkSettings(), [&](Level&) {
        ElkSettings settings = defaultElkSettings();
        for (std::size_t i = 0; i < elkKeys.size(); ++i) {
            errors_.run(routine, [&](Level& level) {
                level = static_cast<Level>(i + 1);
                read(elkKeys[i], store_, settings[i]);
            });
        }
        return settings;
    });
}

bool StoredElkSettings::save(const ElkSettings& settings) {
    return errors_.run("Utilities_saveelksettings", false, [&](Level& level) {
        for (std::size_t i = 0; i < elkKeys.size(); ++i) {
            level = static_cast<Level>(i + 1);
            store_.set(section, elkKeys[i].name, settings[i].text());
        }
        store_.commit();
        return true;
    });
}

} // namespace tarvik
