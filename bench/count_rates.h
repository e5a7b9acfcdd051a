// A made-up tool of count-rate channels, each with a straight line for a calibration.
#pragma once

#include "lcu/scan_setup.h"

namespace tarvik::bench {

inline ScanSetup countRates(const LcuModel* model, int channels) {
    ScanSetup setup;
    setup.model = model;
    setup.toolCode = "K101";
    setup.channels = channels;
    for (std::size_t channel = 1; channel <= static_cast<std::size_t>(channels); ++channel) {
        setup.factors[channel] = {.kind = 1, .factor = 1};
        setup.polynomials[channel] = {.order = 1, .coefficients = {0.5, 0.25}};
    }
    return setup;
}

} // namespace tarvik::bench
