#include "lcu/known_commands.h"

#include <array>

namespace tarvik {

namespace {

constexpr std::array<KnownCommand, 25> commands{{
    {.text = "Q", .meaning = "Ask for the status byte"},
    {.text = "X", .meaning = "Stop the scan stream"},
    {.text = "V", .meaning = "Start the scan stream"},
    {.text = "U", .meaning = "Send a single scan"},
    {.text = "Y", .meaning = "Firmware version of the LCU"},
    {.text = "y", .meaning = "Firmware version of the tool"},
    {.text = "P", .meaning = "Power the tool down"},
    {.text = "D", .meaning = "Ask for the winch depth, cm"},
    {.text = "D1234", .meaning = "Set the winch depth, here to 12.34 m"},
    {.text = "TT50", .meaning = "Sample by time, here every 50/100 s"},
    {.text = "TT25", .meaning = "Sample by time, every 25/100 s: used for the threshold"},
    {.text = "TD+5", .meaning = "Sample by depth: + down or - up, then the step, cm (LCU4: 1/4 cm)"},
    {.text = "MUX", .meaning = "MUX tools: sent before the threshold level"},
    {.text = "L120,250", .meaning = "PULSE and MUX tools: the tool's threshold level"},
    {.text = "!", .meaning = "PULSE and MUX tools: sent behind the threshold level"},
    {.text = "I", .meaning = "PULSE tools: last command of their set-up"},
    {.text = "i", .meaning = "MUX tools: last command of their set-up"},
    {.text = "ER0", .meaning = "Sent before a run, by the monitors and at power-down", .lcu4Only = true},
    {.text = "ER1", .meaning = "Sent by the caliper and fluid-sampler monitors", .lcu4Only = true},
    {.text = "R11,S0", .meaning = "Tools K551 to K554: sensor set-up", .lcu4Only = true},
    {.text = "ER30", .meaning = "Tools K551 to K554: goes with R11,S0", .lcu4Only = true},
    {.text = "ER56", .meaning = "Sent before the sonic run", .lcu4Only = true},
    {.text = "IA1", .meaning = "Sent by the caliper and fluid-sampler monitors"},
    {.text = "PA50", .meaning = "Sent by the fluid-sampler monitor"},
    {.text = "OPEN", .meaning = "Sent by the caliper monitor"},
}};

} // namespace

std::span<const KnownCommand> knownCommands() {
    return commands;
}

} // namespace tarvik
