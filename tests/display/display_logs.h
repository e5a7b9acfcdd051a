// Small logs for the tests of the display.
#pragma once

#include "display/default_display.h"
#include "display/log_data.h"

#include <cmath>
#include <string>
#include <vector>

namespace tarvik::samples {

inline ReviewLog logOf(std::size_t steps, double step, std::vector<std::string> names,
                       DepthUnits units = DepthUnits::metres) {
    ReviewLog log;
    log.header.setup.units = units;
    for (std::size_t i = 0; i < steps; ++i) {
        log.depth.push_back(static_cast<double>(i) * step);
        log.time.push_back(static_cast<double>(i) * 0.5);
    }
    for (std::string& name : names)
        log.channels.push_back({std::move(name), "API", true, std::vector<float>(steps)});
    return log;
}

inline LogCurve curveOf(const std::string& channel, double left, double right) {
    LogCurve curve;
    curve.channel = channel;
    curve.unit = "API";
    curve.scale = {ScaleKind::linear, left, right};
    return curve;
}

inline LogDisplay displayOf(std::vector<std::vector<LogCurve>> tracks) {
    LogDisplay display;
    for (auto& curves : tracks) {
        display.tracks.emplace_back();
        display.tracks.back().curves = std::move(curves);
    }
    return display;
}

} // namespace tarvik::samples
