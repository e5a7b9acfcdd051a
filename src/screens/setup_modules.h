// What the setup screen works on: everything that its pages show, check and change.
#pragma once

#include "app/error_trap.h"
#include "app/link_state.h"
#include "app/operator_side.h"
#include "app/settings.h"
#include "app/status_log.h"
#include "app/stored_settings.h"
#include "equipment/tool_winch_data.h"
#include "lcu/lcu_commands.h"
#include "platform/files.h"
#include "platform/places.h"
#include "platform/serial_devices.h"
#include "platform/settings_store.h"
#include "screens/desktop_memory.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace tarvik {

/// Asks for a folder, beginning at the one given; empty when the operator changed his mind.
using FolderChoice = std::function<QString(QWidget* parent, const QString& beginAt)>;
/// The desktop's own folder dialog.
[[nodiscard]] QString chooseFolder(QWidget* parent, const QString& beginAt);

struct SetupModules {
    ErrorTrap& errors;
    Settings& settings;
    StoredSettings& storedSettings;
    SettingsStore& store; ///< holds the machine's ports and drives
    Places& places;
    Files& files;
    ToolWinchData& equipment;
    LcuCommands& lcu;
    LinkState& link;
    StatusLog& log;
    OperatorSide& operatorSide;
    DesktopMemory& memory;

    std::function<void(int page)> pageChanged = {}; ///< told which page is shown, 0 to 6
    std::function<void()> portsChanged = [] {};     ///< other devices stand in the store
    std::function<std::vector<std::filesystem::path>()> serialDevices = [] {
        return tarvik::serialDevices();
    };
    std::array<std::optional<std::string>, 4> portsOfThisStart = {}; ///< named on its command line
    FolderChoice chooseFolder = tarvik::chooseFolder;
};

} // namespace tarvik
