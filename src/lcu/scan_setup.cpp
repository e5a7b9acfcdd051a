#include "lcu/scan_setup.h"

namespace tarvik {

ScanSetup prepareScans(const CurrentTool& tool, const LcuModel* model, const RunSetup& run) {
    ScanSetup setup;
    setup.model = model;
    setup.toolCode = tool.record.get(tool::code);
    setup.run = run;
    if (tool.mode != 1 && tool.mode != 2) return setup;
    setup.channels = tool.channels();
    for (int channel = 1; channel <= maxChannels; ++channel) {
        const auto i = static_cast<std::size_t>(channel);
        if (channel <= setup.channels) setup.factors[i] = tool.factors[i];
        const Calibration& calibration = tool.calibration(channel);
        setup.polynomials[i] = {.order = calibration.order, .coefficients = calibration.coefficients};
    }
    return setup;
}

} // namespace tarvik
