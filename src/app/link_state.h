// Where the link to the LCU stands. One record: the search and the commands write it, the frame and the run
// read it.
#pragma once

#include <cstdint>
#include <string>

namespace tarvik {

struct LinkState {
    std::int32_t port = 0; ///< open port number, 1 to 4; 0 or less means closed
    std::int32_t baud = 0; ///< the speed at which the LCU answered
    std::string model;     ///< "LCU2Plus", "LCU4", or empty when none was found
    std::string firmware;
    std::int32_t status = -1;   ///< last status byte; -1 before one was received
    std::string statusText;     ///< empty when good
    double modelFactor = 1.0;   ///< depth counts of an LCU4 are quarter centimetres: 0.25
    bool toolPower = false;     ///< set by whoever powers the tool up, cleared by the power-down
    bool powerDoubtful = false; ///< the last power-down was not confirmed: the tool may still be live

    bool busy = false;            ///< an exchange is under way; held through LinkClaim (lcu/link_claim.h)
    bool acquiring = false;       ///< scans are wanted or coming: no box may wait for the operator
    bool lost = false;            ///< the box was there and has stopped sending or answering: its port went,
                                  ///< or nothing comes any more; ends with the next scan or good answer
    bool diagnosticsOpen = false; ///< the diagnostics console is open: good commands are not logged
    bool demo = false; ///< the port number is a show: no device is behind it, nothing is sent or closed

    [[nodiscard]] bool open() const { return port > 0 && !demo; }
};

} // namespace tarvik
