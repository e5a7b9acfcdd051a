// A small run in review for tests of the screens.
#pragma once

#include "base/review_log.h"

namespace tarvik::test {

inline ReviewLog gammaRun() {
    ReviewLog log;
    log.header.runDate = "13-Mar-2006";
    log.header.hole.holeId = "H1";
    log.header.tool = {"K201", "Natural gamma", "G-1"};
    log.header.notes = "Casing to 12 m";
    log.header.channels.resize(2);
    log.header.channels[1].calibration.state = "Calibrated";
    log.depth = {1, 1.5, 2, 2.5};
    log.time = {0, 1, 2, 3.5};
    log.channels = {{"Speed", "M/min", true, {6, 6, 6, 6}}, {"GAMMA", "CPS", false, {10, 20.125F, 30, 40}}};
    log.current.values = {48, 49, 50, 51};
    return log;
}

} // namespace tarvik::test
