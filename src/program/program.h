// The wiring: builds every module in order and owns them all. No logic: whoever starts it (command line,
// desktop, test) brings the operator's side and uses the modules.
#pragma once

#include "app/command_table.h"
#include "app/developer_backup.h"
#include "app/error_log.h"
#include "app/error_trap.h"
#include "app/frame.h"
#include "app/frame_view.h"
#include "app/link_state.h"
#include "app/machine_map.h"
#include "app/operator_side.h"
#include "app/program_modes.h"
#include "app/program_state.h"
#include "app/settings.h"
#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/status_log.h"
#include "app/stored_settings.h"
#include "equipment/calibration_history.h"
#include "equipment/tool_winch_data.h"
#include "files/las_reader.h"
#include "files/run_file_reader.h"
#include "files/run_file_writer.h"
#include "lcu/lcu_commands.h"
#include "lcu/lcu_port.h"
#include "lcu/lcu_search.h"
#include "platform/background_copy.h"
#include "platform/disk_files.h"
#include "platform/display_queries.h"
#include "platform/ini_settings_store.h"
#include "platform/places.h"
#include "platform/serial_port.h"
#include "platform/system_clock.h"
#include "platform/tap_port.h"
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
    std::optional<Path> home = {};                        ///< everything read or written lies below it
    std::array<std::optional<std::string>, 4> ports = {}; ///< devices of COM1 to COM4
    std::optional<Path> traceFile = {};                   ///< transcript of the serial line
    std::optional<std::int32_t> searchedPorts = {};       ///< as the setting "LCUComms"
    bool trapErrors = true;
    bool onlyReview = false; ///< without the maker's equipment database, which reviewing does not need
};

/// What stands in for this machine's clock and serial devices, if anything: a simulated box on its own time.
struct StandIns {
    const Clock* clock = nullptr;
    SerialPort* serial = nullptr;
};

/// What stands before the operator. The parts that are not brought show nothing.
struct Shell {
    OperatorSide& operatorSide;
    FrameView& view;
    MainWindow& window;
    Display& display;
    std::function<void()> yield;           ///< lets the window live while the port waits
    std::function<bool()> searchCancelled; ///< asked after every wait of a search
};

class Program {
  public:
    /// Throws a Failure when the program has no place to live or, unless it only reviews, its
    /// equipment database is missing.
    Program(const ProgramOptions& options, const Shell& shell, const StandIns& standIns = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // In the order in which they are built: each uses those before it.
    Shell shell;
    ProgramOptions options;
    DiskFiles files;
    SystemClock systemClock;
    const Clock& clock;
    Places places;
    IniSettingsStore store;
    SystemTexts system;
    ErrorLog errorLog;
    ErrorTrap errors;
    StatusLog log;
    StoredSettings storedSettings;
    Settings settings; ///< loaded when the frame starts up
    ProgramState state;

    TermiosPort devices;
    std::unique_ptr<TracePort> trace; ///< null without a transcript
    TapPort tap;                      ///< where the diagnostics console hears the raw bytes
    SerialPort& serial;
    LinkState link;
    LcuPort port;
    LcuCommands lcu;
    LcuSearch search;

    CalibrationHistory calibrations;
    ToolWinchData equipment;
    RunFileReader runReader;
    LasFileReader lasReader;
    RunFileWriter runWriter;
    LasExport lasExport;

    BackgroundCopies copies;
    FrameHooks hooks; ///< the calls out of the frame that no screen is needed for are in place
    Frame frame;
    ProgramModes modes;
    DeveloperBackup developerBackup;
    ShutDown shutDown;
    CommandTable commands;
    StartUp startUp;

    /// The ports as the settings name them now, from the next opening on.
    void takePorts();

  private:
    [[nodiscard]] FrameHooks connectHooks();
    void findEquipment(bool onlyReview);
};

} // namespace tarvik
