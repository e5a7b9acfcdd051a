// What a logging run works with: the modules it calls, what the operator ordered, and the state that lives as
// long as the run.
#pragma once

#include "app/error_log.h"
#include "app/error_trap.h"
#include "app/link_state.h"
#include "app/operator_side.h"
#include "app/program_state.h"
#include "app/status_log.h"
#include "base/run_header.h"
#include "equipment/tool_winch_data.h"
#include "files/run_file_reader.h"
#include "files/run_file_writer.h"
#include "lcu/acquisition_ring.h"
#include "lcu/deviation.h"
#include "lcu/lcu_commands.h"
#include "lcu/run_tally.h"
#include "lcu/run_view.h"
#include "lcu/scan_decoder.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvik {

/// References to the modules; all outlive the run.
struct RunModules {
    ErrorTrap& errors;
    ErrorLog& errorLog;
    StatusLog& log;
    OperatorSide& operatorSide;
    RunView& view;
    ProgramState& state;
    const Clock& clock;
    Files& files;
    SerialPort& serial;
    LinkState& link;
    LcuPort& port;
    LcuCommands& lcu;
    ToolWinchData& equipment;
    RunFileReader& reader;
    RunFileWriter& writer;
};

/// What the operator wants logged.
struct RunOrder {
    std::string project;
    Path projectFolder;
    std::string hole;
    HoleDetails holeDetails;
    RunSetup setup;          ///< with the winch's own scale factor as depth factor; the run adds the model's
    std::string screenScale; ///< "1:200", when the display uses a scale
    /// Where scans may go that the run file does not take, in the order in which they are tried.
    std::vector<Path> rescueFolders = {};
};

struct RunState {
    RunHeader header;
    Path file;
    ScanSetup scanSetup;
    ScanState scan;
    HoleWay way; ///< of the deviation tool, from the start of the run file
    AcquisitionRing ring;
    RunTally tally;
    std::optional<std::int64_t> startTick; ///< when the stream was started
    bool fileReady = false;                ///< a header is on disk, so that scans may follow
};

} // namespace tarvik
