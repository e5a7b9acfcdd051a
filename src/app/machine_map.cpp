#include "app/machine_map.h"

namespace tarvik {

namespace {

constexpr std::string_view section = "Ports";

std::string portKey(std::size_t index) {
    return "COM" + std::to_string(index + 1);
}

} // namespace

MachineMap loadMachineMap(const SettingsStore& store) {
    MachineMap map;
    for (std::size_t i = 0; i < map.ports.size(); ++i) {
        map.ports[i] = store.get(section, portKey(i)).value_or("");
    }
    return map;
}

void saveMachineMap(SettingsStore& store, const MachineMap& map) {
    for (std::size_t i = 0; i < map.ports.size(); ++i) {
        const std::string key = portKey(i);
        if (store.get(section, key).value_or("") != map.ports[i]) store.set(section, key, map.ports[i]);
    }
    store.commit();
}

} // namespace tarvik
