#include "lcu/run_preparation.h"

#include "base/number_picture.h"
#include "lcu/run_commands.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view noFirmware = " ??";

} // namespace

bool RunPreparation::prepare() {
    modules_.state.mode = programMode::acquire;
    if (modules_.lcu.LCU_PowerOFF_Reset() != LinkResult::good) return false;
    if (!send(sampling())) return false;
    sayRoundedStep();
    modules_.link.toolPower = true;
    setUpTool();
    if (!sendToolCommands() || stopped()) return false;
    logFirmware();
    return !stopped();
}

std::string RunPreparation::sampling() const {
    return samplingCommand(setup_, model());
}

/// Header and way of the hole keep to the interval as it was set.
void RunPreparation::sayRoundedStep() const {
    const auto step = roundedStep(setup_, model());
    if (!step) return;
    modules_.log.red("The " + std::string(model().name) + " samples every " + shortestNumber(*step) +
                     " cm, not every " + shortestNumber(setup_.interval) +
                     " cm as set. Choose an interval that it can step by.");
}

const LcuModel& RunPreparation::model() const {
    if (const LcuModel* const model = modelNamed(modules_.link.model)) return *model;
    throw Failure(ErrorNumber::internal, "No LCU is connected. Search for it first.");
}

/// The commands together take seconds: who stops the run then need not wait for all of them.
bool RunPreparation::stopped() const {
    return !modules_.state.logging || modules_.view.stopRequested();
}

bool RunPreparation::send(const std::string& command) {
    return !stopped() && modules_.lcu.LCU_Command(command) == LinkResult::good;
}

/// The changed texts are what is sent. The factors are worked out in any case: a run must not start with
/// those of another mode.
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
    const std::string tool = modules_.lcu.LCU_ToolFirmwareVersion();
    modules_.log.black("LCU firmware version : " + modules_.link.firmware);
    modules_.log.black("Tool firmware version : " + (tool == noFirmware ? "-N/A-" : tool));
}

} // namespace tarvik
