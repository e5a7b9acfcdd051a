// Moving about in a log that is reviewed, and reading it: arithmetic of views, no state.
#pragma once

#include "display/display_view.h"
#include "display/log_display.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvik {

/// The extent of a log along its axis, in metres or seconds; both 0 without steps.
struct Extent {
    double from = 0;
    double to = 0;
};
[[nodiscard]] Extent extentOf(const LogData& data, Axis axis);

/// Moved by whole painter units (positive: further down the log), so that what is on the screen can be
/// scrolled instead of drawn.
[[nodiscard]] DisplayView scrolled(const DisplayView& view, double units);
/// A factor above 1 shows less of the log; what stands at `y` of the body stays there.
[[nodiscard]] DisplayView zoomed(const DisplayView& view, double factor, double y);
/// `position` a third of the way down a body of that height.
[[nodiscard]] DisplayView jumpedTo(const DisplayView& view, double position, double bodyHeight);
/// The whole log in the body.
[[nodiscard]] DisplayView showingAll(const DisplayView& view, const LogData& data, double bodyHeight);
[[nodiscard]] DisplayView showingAll(const DisplayView& view, const Extent& extent, double bodyHeight);
/// Kept free beyond either end of a log, in metres (or seconds): its first number and a single scan are seen
/// whole.
[[nodiscard]] double edgeRoom(const DisplayView& view);
/// The whole log with that room.
[[nodiscard]] DisplayView showingWhole(const DisplayView& view, const Extent& extent, double bodyHeight);
/// Between 1:1 and twice the whole log in the body, and never further than that room beyond its ends; a log
/// shorter than the body starts at its top.
[[nodiscard]] DisplayView heldInside(const DisplayView& view, const LogData& data, double bodyHeight);
[[nodiscard]] DisplayView heldInside(const DisplayView& view, const Extent& extent, double bodyHeight);

/// What of the log is in the body: the interval to export.
[[nodiscard]] Extent visibleInterval(const DisplayView& view, const Extent& extent, double bodyHeight);

/// The depths that were logged in an interval of time, metres.
[[nodiscard]] Extent depthsBetween(const LogData& data, const Extent& seconds);

/// From the first to the last depth of the log within an interval, metres: what is exported of it begins and
/// ends with a row.
[[nodiscard]] Extent loggedWithin(const LogData& data, const Extent& metres);

/// An interval as depths are written in forms, with two decimals; outwards, so that it loses no row.
[[nodiscard]] Extent inHundredths(const Extent& depths);

/// The step of the log next below `position`, in metres or seconds; next above it with `up`. Nothing beyond
/// the ends of the log.
[[nodiscard]] std::optional<double> nextStep(const LogData& data, Axis axis, double position, bool up);

struct Reading {
    std::string channel;
    std::string unit;
    bool calibrated = true;
    std::optional<float> value; ///< as logged, not filtered; nothing in a gap
};
struct CursorReading {
    double depth = 0; ///< metres, of the step that was read, or asked for where there is none
    double time = 0;  ///< seconds; 0 where the log has no times
    std::vector<Reading> curves;
};
/// All shown curves at the step nearest to `position`, without values where the log has no steps near it.
/// Nothing of an empty log.
[[nodiscard]] std::optional<CursorReading> readingsAt(const LogDisplay& display, const LogData& data,
                                                      Axis axis, double position);

} // namespace tarvik
