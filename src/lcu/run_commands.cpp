#include "lcu/run_commands.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

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

/// How the tool's signal comes up the cable.
enum class Signal { levels, pulses, multiplexed };

Signal signalOf(const CurrentTool& tool) {
    const std::string kind = tool.record.get(tool::kind(tool.mode));
    if (kind == "MUX") return Signal::multiplexed;
    return kind == "PULSE" ? Signal::pulses : Signal::levels;
}

std::string parameterOf(const CurrentTool& tool, int pair) {
    return tool.record.get(tool::parameter(pair, tool.mode));
}

/// The threshold level, before it what the box has to know to measure it.
void CheckThreshholdlevel(std::vector<std::string>& commands, const CurrentTool& tool, Signal signal) {
    const std::string threshold = parameterOf(tool, thresholdPair);
    if (threshold.empty()) return;
    if (signal == Signal::multiplexed) commands.emplace_back("MUX");
    commands.push_back(threshold + ",250");
}

/// Hundredths of a second as the operator would write them: a single of 0.29 s is "29".
std::string hundredths(float seconds) {
    return shortestNumber(static_cast<float>(leadingNumber(shortestNumber(seconds)) * 100));
}

} // namespace

std::string samplingCommand(const RunSetup& setup, const LcuModel& model) {
    if (setup.sampling == Sampling::time) return "TT" + hundredths(setup.interval);
    const char sign = setup.direction == Direction::up ? '-' : '+';
    const double counts = static_cast<double>(setup.interval) * model.depthStepFactor;
    return std::string("TD") + sign + formatPicture(counts, "##0");
}

std::optional<double> roundedStep(const RunSetup& setup, const LcuModel& model) {
    const double counts = static_cast<double>(setup.interval) * model.depthStepFactor;
    if (setup.sampling == Sampling::time || counts == std::round(counts)) return std::nullopt;
    return std::round(counts) / model.depthStepFactor;
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
    if (std::string factors = tool.record.get(tool::sensorFactors(tool.mode));
        needsCommandSet(tool.record, model) && !factors.empty())
        commands.push_back(std::move(factors));
    const Signal signal = signalOf(tool);
    if (signal != Signal::levels) {
        CheckThreshholdlevel(commands, tool, signal);
        commands.emplace_back("!");
        commands.emplace_back(signal == Signal::multiplexed ? "i" : "I");
    }
    const int firstOther = signal == Signal::levels ? thresholdPair : thresholdPair + 1;
    for (int pair = firstOther; pair <= tool::parameterPairs; ++pair) {
        if (std::string text = parameterOf(tool, pair); !text.empty()) commands.push_back(std::move(text));
    }
    return commands;
}

} // namespace tarvik
