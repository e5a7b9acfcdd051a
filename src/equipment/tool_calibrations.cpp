#include "equipment/tool_calibrations.h"

#include "equipment/calibration_record.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr std::string_view deviationTool = "K417";
constexpr int azimuthChannel = 7; ///< inclination and total field follow
constexpr int totalFieldChannel = 9;

} // namespace

Calibration defaultCalibration(const ToolRecord& record, int mode, int channel) {
    Calibration calibration;
    calibration.sensorName = record.get(tool::channelName(mode, channel));
    calibration.serialNumber = record.get(tool::serialNumber);
    const bool deviation = record.get(tool::code) == deviationTool;
    const bool derived = channel > tool::channels(record, mode) || (deviation && channel >= azimuthChannel);
    if (derived && !calibration.sensorName.empty()) calibration.state = "Synthetic";
    if (deviation && channel >= azimuthChannel && channel <= totalFieldChannel) {
        calibration.coefficients = {0, 0.0001};
    }
    return calibration;
}

void attachCalibrations(CurrentTool& tool, const CalibrationSource& source) {
    const std::vector<Calibration> onRecord =
        source.calibrationsOf(tool.record.get(tool::code), tool.record.get(tool::serialNumber));
    for (const int mode : {1, 2}) {
        auto& calibrations = tool.calibrations[static_cast<std::size_t>(mode - 1)];
        for (int channel = 1; channel <= maxChannels; ++channel) {
            Calibration& calibration = calibrations[static_cast<std::size_t>(channel)];
            calibration = defaultCalibration(tool.record, mode, channel);
            if (calibration.sensorName.empty()) continue;
            const auto latest =
                std::find_if(onRecord.rbegin(), onRecord.rend(), [&](const Calibration& candidate) {
                    return sameSensor(candidate.sensorName, calibration.sensorName);
                });
            if (latest != onRecord.rend()) calibration = *latest;
        }
    }
}

} // namespace tarvik
