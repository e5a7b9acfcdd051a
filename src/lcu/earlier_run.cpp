#include "lcu/earlier_run.h"

#include "base/depth_units.h"
#include "files/run_file_layout.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace tarvik {

namespace {

std::span<const double> termsOf(const Calibration& calibration) {
    const int terms = std::clamp(calibration.order + 1, 0, maxCoefficients);
    return std::span(calibration.coefficients).first(static_cast<std::size_t>(terms));
}

bool samePolynomial(const Calibration& a, const Calibration& b) {
    return std::ranges::equal(termsOf(a), termsOf(b));
}

std::optional<std::size_t> channelNamed(const ReviewLog& run, std::string_view name) {
    const auto found = std::ranges::find(run.channels, name, &ReviewChannel::name);
    if (found == run.channels.end()) return std::nullopt;
    return static_cast<std::size_t>(found - run.channels.begin());
}

float recalibrated(const Calibration& now, const Calibration& before, float stored) {
    if (samePolynomial(now, before)) return stored;
    const auto value = channelValue(before, stored);
    return value ? evaluateCalibration(now.order, now.coefficients, static_cast<float>(*value)) : stored;
}

} // namespace

std::vector<std::string> recalibratedChannels(const RunHeader& current, const RunHeader& onFile) {
    std::vector<std::string> names;
    const std::size_t compared =
        std::min({current.channels.size(), onFile.channels.size(), run_file::slotCount});
    for (std::size_t i = 0; i < compared; ++i) {
        if (!samePolynomial(current.channels[i].calibration, onFile.channels[i].calibration))
            names.push_back(current.channels[i].name);
    }
    return names;
}

std::optional<double> channelValue(const Calibration& calibration, float stored) {
    const auto terms = termsOf(calibration);
    if (terms.size() < 2 || terms[1] == 0) return std::nullopt;
    if (!std::ranges::all_of(terms.subspan(2), [](double term) { return term == 0; })) return std::nullopt;
    return (static_cast<double>(stored) - terms[0]) / terms[1];
}

std::optional<HoleWay> wayAtEnd(const ReviewLog& run, const RunHeader& current) {
    const auto east = channelNamed(run, "East"), north = channelNamed(run, "North"),
               field = channelNamed(run, "Total field");
    if (!east || !north || !field) return HoleWay{};
    const auto wayOf = [&](std::size_t channel, std::size_t step) -> std::optional<double> {
        const Calibration& before = run.header.channels[channel].calibration;
        if (!samePolynomial(before, current.channels[channel].calibration)) return std::nullopt;
        return channelValue(before, run.channels[channel].values[step]);
    };
    for (std::size_t i = run.steps(); i-- > 0;) {
        const std::size_t step = run.asLogged(i);
        if (run.channels[*field].values[step] == 0) continue;
        const auto wayEast = wayOf(*east, step), wayNorth = wayOf(*north, step);
        if (!wayEast || !wayNorth) return std::nullopt;
        return HoleWay{.east = static_cast<float>(*wayEast), .north = static_cast<float>(*wayNorth)};
    }
    return HoleWay{};
}

void showEarlierScans(const ReviewLog& run, const RunHeader& current, AcquisitionRing& ring) {
    const std::size_t channels =
        std::min({run.channels.size(), run.header.channels.size(), current.channels.size()});
    const std::size_t skipped = run.steps() - std::min(run.steps(), AcquisitionRing::capacity);
    const double whole = run.steps() == 0 ? 0 : run.time[run.asLogged(run.steps() - 1)];
    for (std::size_t i = skipped; i < run.steps(); ++i) {
        const std::size_t step = run.asLogged(i);
        AcquisitionPoint point;
        point.depth = static_cast<float>(toMetres(run.depth[step], run.header.setup.units));
        point.seconds = run.time[step] - whole;
        for (std::size_t channel = 1; channel < channels; ++channel) {
            point.values[channel] =
                recalibrated(current.channels[channel].calibration, run.header.channels[channel].calibration,
                             run.channels[channel].values[step]);
        }
        ring.add(point);
    }
}

} // namespace tarvik
