#include "app/machine_map.h"

namespace tarvik {

namespace {

constexpr std::string_view portsSection = "Ports";
constexpr std::string_view drivesSection = "Drives";

std::string portKey(std::size_t index) {
    return "COM" + std::to_string(index + 1);
}

void write(SettingsStore& store, std::string_view section, std::string_view key, const std::string& value) {
    if (store.get(section, key).value_or("") != value) store.set(section, key, value);
}

} // namespace

MachineMap loadMachineMap(const SettingsStore& store) {
    MachineMap map;
    for (std::size_t i = 0; i < map.ports.size(); ++i) {
        map.ports[i] = store.get(portsSection, portKey(i)).value_or("");
    }
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto folder = store.get(drivesSection, {&letter, 1});
        if (folder && !folder->empty()) map.drives[letter] = *folder;
    }
    return map;
}

void saveMachineMap(SettingsStore& store, const MachineMap& map) {
    for (std::size_t i = 0; i < map.ports.size(); ++i) write(store, portsSection, portKey(i), map.ports[i]);
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto found = map.drives.find(letter);
        write(store, drivesSection, {&letter, 1}, found == map.drives.end() ? "" : found->second);
    }
    store.commit();
}

void useDrives(Places& places, const MachineMap& map) {
    std::map<char, std::string> folders = map.drives;
    folders.erase('C');
    places.drives.clear();
    takeDrives(places, folders);
}

} // namespace tarvik
