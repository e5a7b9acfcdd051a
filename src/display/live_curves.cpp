#include "display/live_curves.h"

#include "display/bullseye.h"
#include "display/columns.h"
#include "display/default_display.h"
#include "display/gauges.h"
#include "lcu/tool_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

LogCurve* curveOf(LogDisplay& display, std::string_view channel) {
    for (Track& track : display.tracks) {
        const auto found = std::ranges::find(track.curves, channel, &LogCurve::channel);
        if (found != track.curves.end()) return &*found;
    }
    return nullptr;
}

} // namespace

LivePage livePage(std::string_view toolCode, std::string_view caption) {
    const ToolRule& rule = toolRule(toolCode);
    if (rule.button == &bullseyeButton && caption == bullseyeCaption) return LivePage::plan;
    if (hasGauges(toolCode) && caption == gaugesButton.caption) return LivePage::gauges;
    return LivePage::logs;
}

std::string_view firstCaption(std::string_view toolCode) {
    const ToolButton* const button = toolRule(toolCode).button;
    return button == nullptr ? std::string_view() : button->caption;
}

std::span<const std::string_view> liveFilters() {
    static constexpr std::array<std::string_view, 7> filters{"None", "3", "5", "7", "9", "15", "25"};
    return filters;
}

void LiveCurves::begin(const RunHeader& header, const Scheme& scheme) {
    all_ = defaultDisplay(header, scheme);
    rescaled_.clear();
    for (const auto& [channel, filter] : filters_) {
        if (LogCurve* const curve = curveOf(all_, channel)) curve->filter = filter;
    }
    renew();
}

void LiveCurves::setScheme(const Scheme& scheme) {
    all_.scheme = scheme;
    shown_.scheme = scheme;
}

void LiveCurves::show(std::string_view caption) {
    caption_ = caption;
    renew();
}

void LiveCurves::renew() {
    shown_ = deviationDisplay(all_, caption_);
}

bool LiveCurves::change(std::string_view channel, const ScalePair& scale, const std::string& filter) {
    LogCurve* const curve = curveOf(all_, channel);
    const CurveScale next{curve == nullptr ? ScaleKind::linear : curve->scale.kind, scale.left, scale.right};
    if (curve == nullptr || !isUsable(next)) return false;
    if (next != curve->scale) rescaled_.emplace_back(channel);
    curve->scale = next;
    curve->filter = filter;
    filters_[std::string(channel)] = filter;
    renew();
    return true;
}

const LogCurve* LiveCurves::find(std::string_view channel) const {
    for (const Track& track : all_.tracks) {
        const auto found = std::ranges::find(track.curves, channel, &LogCurve::channel);
        if (found != track.curves.end()) return &*found;
    }
    return nullptr;
}

bool LiveCurves::filtered() const {
    return std::ranges::any_of(shown_.tracks, [](const Track& track) {
        return std::ranges::any_of(track.curves,
                                   [](const LogCurve& curve) { return curve.filter != "None"; });
    });
}

std::vector<LogCurve> LiveCurves::rescaled() const {
    std::vector<LogCurve> curves;
    for (const Track& track : all_.tracks) {
        std::ranges::copy_if(track.curves, std::back_inserter(curves), [this](const LogCurve& curve) {
            return std::ranges::find(rescaled_, curve.channel) != rescaled_.end();
        });
    }
    return curves;
}

const LogCurve* headCurveAt(const LogDisplay& display, const DisplayView& view, double headHeight, double x,
                            double y) {
    const Columns columns = columnsOf(display, view);
    for (std::size_t i = 0; i < display.tracks.size(); ++i) {
        const Column& column = columns.tracks[i];
        if (x < column.left || x >= column.right()) continue;
        // Slots are filled from the body upwards, a millimetre above it.
        const auto curves = shownCurves(display.tracks[i]);
        const double slot = view.millimetres(headSlot);
        const double fromTop =
            y - (headHeight - view.millimetres(1) - slot * static_cast<double>(curves.size()));
        const double at = std::floor(fromTop / slot);
        if (at >= 0 && at < static_cast<double>(curves.size())) return curves[static_cast<std::size_t>(at)];
    }
    return nullptr;
}

} // namespace tarvik
