// tarvik find: which port has an LCU, which model it is, at which speed it answers.
#include "cli/console_operator.h"
#include "cli/stop_signals.h"
#include "cli/verb.h"

#include <iostream>

namespace tarvik {

namespace {

int runFind(const Arguments& arguments) {
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    ConsoleOperator console;
    ProgramOptions options = programOptions(arguments);
    if (const auto trace = arguments.text("--trace")) options.traceFile = *trace;
    Program program(options, console);
    const StopSignals signals;
    const auto ports = searchedPorts(arguments, program.settings);
    const SearchResult result = program.search.LCU_Locate(ports, [&] { return signals.arrived(); });
    if (result != SearchResult::found) {
        std::cerr << "No LCU was found. Is it switched on and connected? Name its device with --com1 DEV.\n";
        return exitFailed;
    }
    std::cout << "model " << program.link.model << "\nport COM" << program.link.port << "\nbaud "
              << program.link.baud << "\nfirmware "
              << (program.link.firmware.empty() ? "-N/A-" : program.link.firmware) << "\n";
    program.port.close();
    return exitDone;
}

} // namespace

Verb findVerb() {
    return {.name = "find",
            .usage = "find [options]",
            .purpose = "search the serial ports for an LCU; prints model, port, baud rate and firmware",
            .options = {{"--trace", "FILE", "write a transcript of the serial line"}},
            .run = runFind};
}

} // namespace tarvik
