#include "lcu/run_commands.h"

#include "base/number_picture.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 4> commandSetTools{"K551", "K552", "K553", "K554"};
constexpr std::string_view plainFactors = "H21,I21";
constexpr std::string_view energyFactors = "R11,S0";
constexpr std::string_view energyCommand = "ER30";
constexpr int firstEnergyPair = 4;
constexpr int thresholdPair = 1;
constexpr std::int16_t plainLevel = 4;

bool hasPlainLevel(const CurrentTool& tool) {
    const auto* const first = tool.factors.begin() + 1;
    return std::any_of(first, first + tool.channels(),
                       [](const SensorFactor& f) { return f.kind == plainLevel; });
}

/// "MUX" and the threshold level of tools whose signal comes up the cable as pulses, then "!" and the way to
/// count.
void addPulseCommands(std::vector<std::string>& commands, const CurrentTool& tool) {
    const std::string kind = tool.record.get(tool::kind(tool.mode));
    const bool mux = kind == "MUX";
    if (!mux && kind != "PULSE") return;
    const std::string threshold = tool.record.get(tool::parameter(thresholdPair, tool.mode));
    if (!threshold.empty()) {
        if (mux) commands.emplace_back("MUX");
        commands.push_back(threshold + ",250");
    }
    commands.emplace_back("!");
    commands.emplace_back(mux ? "i" : "I");
}

bool isPulseTool(const CurrentTool& tool) {
    const std::string kind = tool.record.get(tool::kind(tool.mode));
    return kind == "MUX" || kind == "PULSE";
}

} // namespace

std::string samplingCommand(const RunSetup& setup, const LcuModel& model) {
    if (setup.sampling == Sampling::time)
        return "TT" + shortestNumber(static_cast<double>(setup.interval) * 100);
    const char sign = setup.direction == Direction::up ? '-' : '+';
    const double counts = static_cast<double>(setup.interval) * model.depthStepFactor;
    return std::string("TD") + sign + formatPicture(counts, "##0");
}

bool needsCommandSet(const ToolRecord& record, const LcuModel& model) {
    return model.name == lcu4->name &&
           std::ranges::find(commandSetTools, record.get(tool::code)) != commandSetTools.end();
}

void setToolCommands(ToolRecord& record) {
    for (const int mode : {1, 2}) {
        if (record.get(tool::sensorFactors(mode)) == plainFactors) {
            record.set(tool::sensorFactors(mode), energyFactors);
        }
    }
}

void setEnergyCommands(CurrentTool& tool) {
    if (!hasPlainLevel(tool)) return;
    for (const int mode : {1, 2}) {
        if (tool.record.get(tool::sensorFactors(mode)) != energyFactors) continue;
        for (int pair = firstEnergyPair; pair <= tool::parameterPairs; ++pair) {
            tool.record.set(tool::parameter(pair, mode), energyCommand);
        }
    }
}

std::vector<std::string> toolCommands(const CurrentTool& tool, const LcuModel& model) {
    std::vector<std::string> commands;
    if (model.name == lcu4->name) commands.emplace_back("ER0");
    if (needsCommandSet(tool.record, model))
        commands.push_back(tool.record.get(tool::sensorFactors(tool.mode)));
    addPulseCommands(commands, tool);
    for (int pair = 1; pair <= tool::parameterPairs; ++pair) {
        const std::string text = tool.record.get(tool::parameter(pair, tool.mode));
        const bool sentAsThreshold = pair == thresholdPair && isPulseTool(tool);
        if (!text.empty() && !sentAsThreshold) commands.push_back(text);
    }
    return commands;
}

} // namespace tarvik
