// The program's own modules for the diagnostics console.
#pragma once

#include "lcu/diagnostics_console.h"
#include "program/program.h"

namespace tarvik {

[[nodiscard]] inline DiagnosticsModules diagnosticsModules(Program& program) {
    return {.errors = program.errors,
            .log = program.log,
            .clock = program.clock,
            .serial = program.serial,
            .link = program.link,
            .lcu = program.lcu,
            .equipment = program.equipment,
            .settings = program.settings,
            .findLcu = [&program] { program.hooks.searchForLcu(); }};
}

} // namespace tarvik
