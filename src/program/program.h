// The wiring: builds every module in order and owns them all. No logic: whoever starts it (command line,
// desktop, test) brings the operator's side and uses the modules.
#pragma once

#include "app/error_log.h"
#include "app/error_trap.h"
#include "app/link_state.h"
#include "app/machine_map.h"
#include "app/operator_side.h"
#include "app/settings.h"
#include "app/status_log.h"
#include "app/stored_settings.h"
#include "equipment/tool_winch_data.h"
#include "files/run_file_reader.h"
#include "files/run_file_writer.h"
#include "lcu/lcu_commands.h"
#include "lcu/lcu_port.h"
#include "lcu/lcu_search.h"
#include "platform/disk_files.h"
#include "platform/ini_settings_store.h"
#include "platform/places.h"
#include "platform/serial_port.h"
#include "platform/system_clock.h"
#include "platform/termios_port.h"
#include "platform/trace_port.h"
#include "processing/las_export.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tarvik {

/// What a start says on its command line; it goes before what the settings say and is never saved.
struct ProgramOptions {
    std::optional<Path> home;                        ///< everything read or written lies below it
    std::array<std::optional<std::string>, 4> ports; ///< devices of COM1 to COM4
    std::optional<Path> traceFile;                   ///< transcript of the serial line
    bool trapErrors = true;
};

class Program {
  public:
    /// `yield` lets a window live while the port waits. Throws a Failure when the program has no place to
    /// live or its equipment database is missing.
    Program(const ProgramOptions& options, OperatorSide& operatorSide, std::function<void()> yield = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // In the order in which they are built: each uses those before it.
    OperatorSide& operatorSide;
    DiskFiles files;
    SystemClock clock;
    Places places;
    IniSettingsStore store;
    ErrorLog errorLog;
    ErrorTrap errors;
    StatusLog log;
    StoredSettings storedSettings;
    Settings settings;

    TermiosPort devices;
    std::unique_ptr<TracePort> trace; ///< null without a transcript
    SerialPort& serial;
    LinkState link;
    LcuPort port;
    LcuCommands lcu;
    LcuSearch search;

    NoCalibrations calibrations;
    ToolWinchData equipment;
    RunFileReader runReader;
    RunFileWriter runWriter;
    LasExport lasExport;

    /// The folder of a project on the projects drive.
    [[nodiscard]] Path projectFolder(std::string_view project) const;
};

} // namespace tarvik
