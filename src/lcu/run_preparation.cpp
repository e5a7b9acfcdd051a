#include "lcu/run_preparation.h"

#include "lcu/run_commands.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view noFirmware = " ??";

} // namespace

bool RunPreparation::prepare() {
    if (modelNamed(modules_.link.model) == nullptr || !modules_.link.open()) {
        modules_.log.red("No LCU is connected. Search for it first.");
        return false;
    }
    if (modules_.lcu.LCU_PowerOFF_Reset() != LinkResult::good) return false;
    if (!send(sampling())) return false;
    modules_.link.toolPower = true;
    setUpTool();
    if (!sendToolCommands()) return false;
    logFirmware();
    return true;
}

std::string RunPreparation::sampling() const {
    return samplingCommand(setup_, model());
}

const LcuModel& RunPreparation::model() const {
    return *modelNamed(modules_.link.model);
}

bool RunPreparation::send(const std::string& command) {
    return modules_.lcu.LCU_Command(command) == LinkResult::good;
}

/// K551 to K554 get another command set on an LCU4; the changed texts are what is sent. The factors are
/// worked out here in any case, so that a run never starts with those of another mode.
void RunPreparation::setUpTool() {
    CurrentTool& tool = modules_.equipment.currentTool();
    const bool otherCommands = needsCommandSet(tool.record, model());
    if (otherCommands) setToolCommands(tool.record);
    modules_.equipment.ToolWinchData_getcurrentsensorfactors();
    if (otherCommands) setEnergyCommands(tool);
}

bool RunPreparation::sendToolCommands() {
    const auto commands = toolCommands(modules_.equipment.currentTool(), model());
    return std::ranges::all_of(commands, [this](const std::string& command) { return send(command); });
}

void RunPreparation::logFirmware() {
    const std::string& box = modules_.link.firmware;
    const std::string tool = modules_.lcu.LCU_ToolFirmwareVersion();
    modules_.log.black("LCU firmware version : " + (box.empty() ? "-N/A-" : box));
    modules_.log.black("Tool firmware version : " + (tool == noFirmware ? "-N/A-" : tool));
}

} // namespace tarvik
