// tarvik find: which port has an LCU, which model it is, at which speed it answers.
#include "cli/terminal.h"

#include <iostream>

namespace tarvik {

namespace {

int runFind(const Arguments& arguments) {
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    Terminal terminal;
    Session session(arguments, terminal);
    if (!session.find()) return exitFailed;
    const LinkState& link = session.program().link;
    std::cout << "model " << link.model << "\nport COM" << link.port << "\nbaud " << link.baud
              << "\nfirmware " << (link.firmware.empty() ? "-N/A-" : link.firmware) << "\n";
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
