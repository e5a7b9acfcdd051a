// Settings files: loaded, saved, and loaded again to the same values.
#include "app/stored_settings.h"
#include "fuzz_rig.h"
#include "platform/ini_settings_store.h"

using namespace tarvik;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Rig rig("in.ini", data, size);
    IniSettingsStore store(rig.files, "in.ini");
    StoredSettings stored(rig.errors, store);
    const Settings settings = stored.Utilities_loadregsettings();
    if (!stored.Utilities_saveregsettings(settings)) return 0;
    IniSettingsStore written(rig.files, "in.ini");
    StoredSettings again(rig.errors, written);
    if (again.Utilities_loadregsettings().hole.holeId != settings.hole.holeId) std::abort();
    return 0;
}
