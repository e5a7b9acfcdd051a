// What the name of a channel says about how it is customarily drawn.
#pragma once

#include "display/log_display.h"

#include <string_view>

namespace tarvik {

/// The tracks in their order; the first stands left of the depths.
enum class CurveGroup {
    correlation,
    resistivity,
    porosity,
    sonic,
    fluid,
    direction,
    field,
    gravity,
    way,
    other
};

struct CurveRule {
    std::string_view word; ///< up to four letters: how the name begins; longer: contained in it
    CurveGroup group = CurveGroup::other;
    CurveScale scale; ///< where neither the tool record nor the values are asked
    Ink ink = Ink::black;
    bool points = false;        ///< a value that goes round, such as an azimuth, is not joined by lines
    std::string_view unit = {}; ///< the rule is for channels whose unit begins so; empty: whatever it is

    [[nodiscard]] bool hasScale() const { return scale.left != scale.right; }
};

[[nodiscard]] const CurveRule& curveRule(std::string_view channel, std::string_view unit = {});

} // namespace tarvik
