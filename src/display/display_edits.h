// Changes to a display, as the operator makes them, and what is wrong with an entry before it becomes one.
#pragma once

#include "display/log_data.h"
#include "display/log_display.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Each in one sentence; empty when nothing is wrong.
[[nodiscard]] std::string scaleEndProblem(ScaleKind kind, std::string_view text);
/// Of the right end, which must also differ from the left one.
[[nodiscard]] std::string scaleProblem(ScaleKind kind, std::string_view left, std::string_view right);
[[nodiscard]] std::string filterProblem(std::string_view text);
[[nodiscard]] std::string lineWidthProblem(std::string_view text);
[[nodiscard]] std::string trackWidthProblem(std::string_view text);
[[nodiscard]] std::string divisionsProblem(std::string_view text);

/// The curve takes the last place of the other track, and that place is returned.
std::size_t moveCurve(LogDisplay& display, std::size_t track, std::size_t curve, std::size_t toTrack);
/// Changes places with its neighbour; its new place.
std::size_t raiseCurve(Track& track, std::size_t curve);
std::size_t lowerCurve(Track& track, std::size_t curve);
void removeCurve(Track& track, std::size_t curve);
/// An empty track beside the one at `track`; its place.
std::size_t addTrack(LogDisplay& display, std::size_t track);
/// False for the last track: a display has one.
bool removeTrack(LogDisplay& display, std::size_t track);
/// The depth track between the tracks `place` and the one before it.
void placeDepthTrack(LogDisplay& display, std::size_t place);

/// The curve that a channel gets by itself: as `usual` (the display nobody has changed) has it, else on a
/// scale around its values.
[[nodiscard]] LogCurve curveOfChannel(const ChannelData& channel, const LogDisplay& usual);
/// Names of the log's channels in their order.
[[nodiscard]] std::vector<std::string> channelNames(const LogData& data);

} // namespace tarvik
