// The curves of a run that is being logged, as the operator wants to see them: which of them the tool's
// button leaves, their scales and their filters. All of it belongs to the display, nothing to the run file.
#pragma once

#include "base/run_header.h"
#include "display/display_view.h"
#include "display/log_display.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// What stands where the logs are drawn.
enum class LivePage { logs, gauges, plan };

/// By the tool and the caption of its button: "Gauges" and "Logs" of the fluid samplers, "Bullseye",
/// "Magnetics" and "Deviation" of the deviation tool. Any other tool shows its logs.
[[nodiscard]] LivePage livePage(std::string_view toolCode, std::string_view caption);

/// What the button of the tool says when a run starts; nothing for a tool without one.
[[nodiscard]] std::string_view firstCaption(std::string_view toolCode);

/// The filters that the live display offers: "None" and windows of that many points.
[[nodiscard]] std::span<const std::string_view> liveFilters();

class LiveCurves {
  public:
    /// Another run. Filters stay with channels of the same name; scales are those of the tool.
    void begin(const RunHeader& header, const Scheme& scheme);
    void setScheme(const Scheme& scheme);
    /// The tracks that the button's caption leaves.
    void show(std::string_view caption);

    /// False, and nothing changed, when the scale cannot be used or there is no such curve.
    bool change(std::string_view channel, const ScalePair& scale, const std::string& filter);

    [[nodiscard]] const LogDisplay& shown() const { return shown_; }
    [[nodiscard]] const LogCurve* find(std::string_view channel) const;
    /// Some curve that is shown is filtered: a new point then changes more than its own rows.
    [[nodiscard]] bool filtered() const;
    /// Those whose scale is to be kept with the tool, once the winch stands.
    [[nodiscard]] std::vector<LogCurve> rescaled() const;

  private:
    void renew();

    LogDisplay all_;
    LogDisplay shown_;
    std::string caption_;
    std::map<std::string, std::string, std::less<>> filters_; ///< by channel
    std::vector<std::string> rescaled_;                       ///< channels
};

/// The curve whose head is at a place in the band of track heads, in painter units; null beside them.
[[nodiscard]] const LogCurve* headCurveAt(const LogDisplay& display, const DisplayView& view,
                                          double headHeight, double x, double y);

} // namespace tarvik
