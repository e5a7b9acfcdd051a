// The texts of a LAS 2.0 file, as pure functions: sections of lines that end with CR LF, in the single-byte
// code page of the program's other files.
#pragma once

#include "base/depth_units.h"
#include "base/run_header.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

struct LasWell {
    std::string unit = "M"; ///< of the depths
    double start = 0;
    double stop = 0;
    double step = 0; ///< 0: no regular step
    std::string_view nullText;
};

struct LasCurve {
    std::string name;
    std::string unit;
    std::optional<int> filter; ///< window length in points; nothing: raw data
};

/// A text as it stands in the file: without blanks around it, "?" for letters that the code page has not, and
/// "-" for "~", which begins a section wherever it stands in a line.
[[nodiscard]] std::string inLasFile(std::string_view text);

/// "M" or "FT".
[[nodiscard]] std::string_view lasDepthUnit(DepthUnits units);

[[nodiscard]] std::string lasVersionSection();
[[nodiscard]] std::string lasWellSection(const LasWell& well, const HoleDetails& hole, std::string_view date);
/// The depth curve goes first; `curves` are the channels behind it, numbered from 2.
[[nodiscard]] std::string lasCurveSection(std::string_view depthUnit, std::span<const LasCurve> curves);
[[nodiscard]] std::string lasFilterNote(std::span<const LasCurve> curves);
[[nodiscard]] std::string lasParameterSection(std::string_view azimuth, std::string_view inclination);
/// "~A     Depth" and the names over their columns, which a name of 12 characters fills; a longer one has a
/// blank in front.
[[nodiscard]] std::string lasColumnLine(std::span<const LasCurve> curves);

/// One data line: the depth, then the value of each column at `row`. A column is 12 wide and grows, with a
/// blank in front, when a number needs more, so that two numbers never run together.
void appendLasRow(std::string& text, double depth, std::span<const std::vector<float>> columns,
                  std::size_t row, int decimals, std::string_view nullText);

} // namespace tarvik
