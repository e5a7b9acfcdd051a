#include "program/program.h"

#include "base/failure.h"
#include "platform/serial_devices.h"

#include <algorithm>

namespace tarvik {

namespace {

ProblemReport toOperator(OperatorSide& operatorSide, std::string_view title) {
    return [&operatorSide, title](const std::string& problem) {
        operatorSide.notice(title, problem, Icon::exclamation);
    };
}

Places resolvePlaces(const ProgramOptions& options, Files& files) {
    return placesFor(options.home, environmentVariable,
                     installedDataFolder(files, runningExecutable(), TARVIK_BUILT_DATA));
}

/// What the command line names, else what the settings name, else the serial devices of this machine in
/// order.
PortDevices portDevices(const ProgramOptions& options, const MachineMap& map) {
    const auto found = serialDevices();
    PortDevices devices;
    for (std::size_t i = 0; i < map.ports.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i + 1);
        if (options.ports[i])
            devices[number] = *options.ports[i];
        else if (!map.ports[i].empty())
            devices[number] = map.ports[i];
        else if (i < found.size())
            devices[number] = found[i];
    }
    return devices;
}

SerialPort& line(SerialPort& devices, const StandIns& standIns) {
    return standIns.serial ? *standIns.serial : devices;
}

/// The drives are settings, and the settings lie in one of the places: they are added once the store is open.
Path historyFolder(Places& places, const SettingsStore& store, OperatorSide& operatorSide) {
    takeDrives(places, loadMachineMap(store).drives, toOperator(operatorSide, "Drives"));
    return places.runHistoryFolder();
}

/// A port yields to the window only while it is open, and a demonstration opens none. Before the first
/// activation is done no click may come through.
void sleepAlive(Program& program, int milliseconds) {
    constexpr int sliceMs = 10;
    for (int left = milliseconds; left > 0; left -= sliceMs) {
        program.serial.ComSleepMS(program.link.port, std::min(left, sliceMs));
        if (program.shell.yield && program.state.firstActivationDone) program.shell.yield();
    }
}

} // namespace

Program::Program(const ProgramOptions& theOptions, const Shell& theShell, const StandIns& standIns)
    : shell(theShell),
      options(theOptions),
      clock(standIns.clock ? *standIns.clock : systemClock),
      places(resolvePlaces(options, files)),
      store(files, places.settingsFile, toOperator(shell.operatorSide, "Settings")),
      system(systemTexts(querySystem())),
      errorLog(shell.operatorSide, clock, files, historyFolder(places, store, shell.operatorSide), system),
      errors(errorLog, options.trapErrors),
      log(errors, clock, files, places.runHistoryFolder()),
      storedSettings(errors, store),
      devices(portDevices(options, loadMachineMap(store)), shell.yield),
      trace(options.traceFile
                ? std::make_unique<TracePort>(line(devices, standIns), clock, files, *options.traceFile,
                                              toOperator(shell.operatorSide, "Transcript"))
                : nullptr),
      tap(trace ? *trace : line(devices, standIns), clock),
      serial(tap),
      port(serial, log, link),
      lcu(errors, log, shell.operatorSide, port, link),
      search(errors, log, shell.operatorSide, port, lcu, link),
      calibrations(errors, files, log, shell.operatorSide, clock, places.programFolder),
      equipment(errors, files, log, shell.operatorSide, calibrations, places.programFolder),
      runReader(errors, log, files),
      lasReader(errors, log, shell.operatorSide, files),
      runWriter(errors, files),
      lasExport(errors, files),
      hooks(connectHooks()),
      frame{errors, log,  shell.operatorSide, shell.view,     hooks,
            state,  link, settings,           storedSettings, places},
      modes(frame),
      developerBackup(frame, clock, files),
      shutDown(frame, shell.window, shell.display),
      commands(frame, modes, shutDown, developerBackup, shell.window, shell.display),
      startUp(frame, commands, shell.window, shell.display, errorLog, system) {
    fillProgramFolder(places, files);
    findEquipment(options.onlyReview);
}

/// Reviewing needs no equipment, but an operator who goes logging with this machine should know.
void Program::findEquipment(bool onlyReview) {
    try {
        requireMakersEquipment(places, files);
    } catch (const Failure& missing) {
        if (!onlyReview) throw;
        shell.operatorSide.notice("Equipment",
                                  std::string(missing.what()) + ". Reviewing goes on; logging needs it.",
                                  Icon::exclamation);
    }
}

void Program::takePorts() {
    devices.useDevices(portDevices(options, loadMachineMap(store)));
}

FrameHooks Program::connectHooks() {
    FrameHooks to;
    to.searchForLcu = [this] {
        return search.LCU_Locate(options.searchedPorts.value_or(settings.lcuComms), shell.searchCancelled) ==
               SearchResult::found;
    };
    to.stopDataStream = [this] { lcu.stopStream(); };
    to.closePort = [this] { port.close(); };
    to.loadCalibrationHistory = [this] { calibrations.open(); };
    to.startCopying = [this](const Path& from, const Path& into) { return copies.start(from, into); };
    to.copiesEnded = [this] { return copies.ended(); };
    to.sleep = [this](int milliseconds) { sleepAlive(*this, milliseconds); };
    return to;
}

} // namespace tarvik
