#include "lcu/known_commands.h"

#include <array>

namespace tarvik {

namespace {

constexpr std::array<KnownCommand, 24> commands{{
    {.text = "Q", .meaning = "Ask for the status byte"},
    {.text = "X", .meaning = "Stop the scan stream"},
    {.text = "V", .meaning = "Start the scan stream"},
    {.text = "U", .meaning = "Send a single scan"},
    {.text = "Y", .meaning = "Firmware version of the LCU"},
    {.text = "y", .meaning = "Firmware version of the tool"},
    {.text = "P", .meaning = "Power the tool down"},
    {.text = "D", .meaning = "Ask for the winch depth (cm)"},
    {.text = "D1234", .meaning = "Set the winch depth to 12.34 m (value in cm)", .needsValue = true},
    {.text = "TT50", .meaning = "Sample by time: the interval in 1/100 s", .needsValue = true},
    {.text = "TT25", .meaning = "Sample every quarter of a second"},
    {.text = "TD+5",
     .meaning = "Sample by depth: + downwards, - upwards, then the step in depth counts",
     .needsValue = true},
    {.text = "MUX", .meaning = "Switch the tool's multiplexer on"},
    {.text = "!", .meaning = "Take over the pulse thresholds"},
    {.text = "I", .meaning = "Pulse set-up, first polarity"},
    {.text = "i", .meaning = "Pulse set-up, other polarity"},
    {.text = "ER0", .meaning = "Interface set-up for ordinary tools", .lcu4Only = true},
    {.text = "ER1", .meaning = "Interface set-up for motor tools", .lcu4Only = true},
    {.text = "ER30", .meaning = "Interface set-up for level channels", .lcu4Only = true},
    {.text = "R11,S0", .meaning = "Tool set-up that goes with ER30", .lcu4Only = true},
    {.text = "ER56", .meaning = "Interface set-up for the sonic run", .lcu4Only = true},
    {.text = "IA1", .meaning = "Motor tools: select the motor", .needsValue = true},
    {.text = "PA50", .meaning = "Fluid sampler: motor power", .needsValue = true},
    {.text = "OPEN", .meaning = "Caliper: open the arms"},
}};

} // namespace

std::span<const KnownCommand> knownCommands() {
    return commands;
}

} // namespace tarvik
