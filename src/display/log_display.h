// What a log display looks like: tracks side by side with their curves, the depth track between them, the
// colours. A value: copied, compared, saved as a template and edited freely; it holds no measured data.
//
// Lengths are millimetres of paper. Widths of tracks are shares: they are stretched to the width that there
// is beside the depth track, never the depth scale.
#pragma once

#include "display/curve_scale.h"
#include "display/scheme.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

enum class LineKind { solid, dashed, dotted, dashDot, points };
enum class FillKind { none, left, right, base };
enum class OffScale { cut, wrap };

struct CurveStyle {
    Ink ink = Ink::black;
    std::optional<Colour> ownColour; ///< instead of the ink, whatever the scheme
    LineKind line = LineKind::solid;
    double width = 0.3; ///< mm
    FillKind fill = FillKind::none;

    friend bool operator==(const CurveStyle&, const CurveStyle&) = default;
};

struct LogCurve {
    std::string channel; ///< name of the channel that it draws
    std::string unit;
    bool calibrated = true; ///< false: counts; the head says so
    CurveScale scale;
    CurveStyle style;
    OffScale offScale = OffScale::wrap;
    double base = 0;             ///< value up to which FillKind::base fills
    std::string filter = "None"; ///< of the printed and shown curve: "None" or a number of points
    bool shown = true;

    friend bool operator==(const LogCurve&, const LogCurve&) = default;
};

struct Track {
    double width = 60;
    ScaleKind grid = ScaleKind::linear;
    int divisions = 10; ///< of a linear grid; a logarithmic one follows the scale of its first such curve
    std::vector<LogCurve> curves;

    friend bool operator==(const Track&, const Track&) = default;
};

/// Winch speed, drawn as a bar along the depth track; in units of depth per minute.
constexpr std::string_view speedCurve = "Speed";
/// Of the bar, in the unit of the channel: 30 m/min, 100 ft/min.
[[nodiscard]] double fullSpeed(std::string_view unit);

enum class DepthNumbers { metres, feet, both };

struct DepthTrack {
    double width = 16;
    DepthNumbers numbers = DepthNumbers::metres;
    bool speedBar = true; ///< winch speed as a bar along its edge, where the run has it

    friend bool operator==(const DepthTrack&, const DepthTrack&) = default;
};

enum class MarkKind { annotation, casing, fluid };

struct DepthMark {
    double depth = 0; ///< metres
    MarkKind kind = MarkKind::annotation;
    std::string text;

    friend bool operator==(const DepthMark&, const DepthMark&) = default;
};

struct LogDisplay {
    std::vector<Track> tracks;
    std::size_t depthPlace = 1; ///< tracks left of the depth track
    DepthTrack depthTrack;
    std::vector<DepthMark> marks;
    Scheme scheme = lightScheme();
};

/// The curves that are drawn, in their order.
[[nodiscard]] std::vector<const LogCurve*> shownCurves(const Track& track);

/// Each shown curve in a track of its own, all equally wide.
[[nodiscard]] LogDisplay equallySpaced(const LogDisplay& display);

/// The track's own choice where one of its curves has it, else the kind of its first curve: a grid of decades
/// under a linear curve would be misread by decades.
[[nodiscard]] ScaleKind gridKind(const Track& track);
/// The scale that a logarithmic grid follows.
[[nodiscard]] CurveScale gridScale(const Track& track);

[[nodiscard]] Colour colourOf(const LogCurve& curve, const Scheme& scheme);

} // namespace tarvik
