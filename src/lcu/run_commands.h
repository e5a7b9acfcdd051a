// What the box is told before a run, as texts: pure functions of the set-up, the model and the tool.
#pragma once

#include "base/current_equipment.h"
#include "base/run_setup.h"
#include "lcu/lcu_models.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvik {

/// "TD+5" by depth (the interval in depth counts of the model), "TT50" by time (hundredths of a second).
[[nodiscard]] std::string samplingCommand(const RunSetup& setup, const LcuModel& model);
/// Centimetres that the box really steps by, when the command had to be rounded to its depth counts.
[[nodiscard]] std::optional<double> roundedStep(const RunSetup& setup, const LcuModel& model);

/// The tools K551 to K554 speak another dialect on an LCU4; any other tool or model stays as it is.
[[nodiscard]] bool needsCommandSet(const ToolRecord& record, const LcuModel& model);
/// That dialect: "R11,S0" instead of "H21,I21" in the sensor factors of each mode.
void setToolCommands(ToolRecord& record);
/// Once the factors of the changed texts are worked out: with a plain level among them, "ER30" goes into
/// parameters four to seven of each mode that reads "R11,S0".
void setEnergyCommands(CurrentTool& tool);

/// The commands after the sampling command, in order; each goes through LCU_Command.
[[nodiscard]] std::vector<std::string> toolCommands(const CurrentTool& tool, const LcuModel& model);

} // namespace tarvik
