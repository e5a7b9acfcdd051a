#include "program/program.h"

#include "platform/serial_devices.h"

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

/// The drives are settings, and the settings lie in one of the places: they are added once the store is open.
Path historyFolder(Places& places, const SettingsStore& store, OperatorSide& operatorSide) {
    takeDrives(places, store, toOperator(operatorSide, "Drives"));
    return places.runHistoryFolder();
}

} // namespace

Program::Program(const ProgramOptions& options, OperatorSide& side, std::function<void()> yield)
    : operatorSide(side),
      places(resolvePlaces(options, files)),
      store(files, places.settingsFile, toOperator(side, "Settings")),
      errorLog(side, clock, files, historyFolder(places, store, side), systemTexts(querySystem())),
      errors(errorLog, options.trapErrors),
      log(errors, clock, files, places.runHistoryFolder()),
      storedSettings(errors, store),
      settings(storedSettings.Utilities_loadregsettings()),
      devices(portDevices(options, loadMachineMap(store)), std::move(yield)),
      trace(options.traceFile ? std::make_unique<TracePort>(devices, clock, files, *options.traceFile,
                                                            toOperator(side, "Transcript"))
                              : nullptr),
      serial(trace ? static_cast<SerialPort&>(*trace) : devices),
      port(serial, log, link),
      lcu(errors, log, side, port, link),
      search(errors, log, side, port, lcu, link),
      equipment(errors, files, log, side, calibrations, places.programFolder),
      runReader(errors, log, files),
      runWriter(errors, files),
      lasExport(errors, files) {
    fillProgramFolder(places, files);
}

Path Program::projectFolder(std::string_view project) const {
    return places.projectsFolder(settings.projectDrive) / Path(std::string(project));
}

} // namespace tarvik
