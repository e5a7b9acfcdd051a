#include "display/gauges.h"

#include "base/number_picture.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

double Gauge::fraction() const {
    return value ? std::clamp(ScaleMap(scale).fraction(*value), 0.0, 1.0) : 0;
}

bool Gauge::offScale() const {
    if (!value) return false;
    const double fraction = ScaleMap(scale).fraction(*value);
    return fraction < 0 || fraction > 1;
}

bool hasGauges(std::string_view toolCode) {
    return toolCode == "K306" || toolCode == "K307";
}

std::vector<Gauge> gaugesOf(const LogDisplay& display, const LogData& data) {
    std::vector<Gauge> gauges;
    for (const Track& track : display.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            Gauge gauge;
            gauge.name = curve->channel;
            gauge.unit = curve->unit;
            gauge.scale = curve->scale;
            gauge.calibrated = curve->calibrated;
            gauge.kind = curve->channel == "Piston" ? GaugeKind::chamber : GaugeKind::dial;
            const ChannelData* channel = data.find(curve->channel);
            if (channel != nullptr && !channel->values.empty() && !isNoValue(channel->values.back())) {
                gauge.value = channel->values.back();
            }
            gauges.push_back(std::move(gauge));
        }
    }
    return gauges;
}

std::string gaugeText(const Gauge& gauge) {
    if (!gauge.value) return "\u2013";
    const double span = std::abs(gauge.scale.right - gauge.scale.left);
    return formatPicture(*gauge.value, span >= 1000 ? "0" : span >= 10 ? "0.0" : "0.00");
}

} // namespace tarvik
