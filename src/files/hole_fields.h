// The seventeen header texts of a hole: how they are called on screens, and how much of each a run file
// keeps.
#pragma once

#include "base/run_header.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

enum class HolePart { hole, casingAndFluid };

struct HoleField {
    std::string HoleDetails::*value;
    std::string_view name;  ///< of the control, without its prefix
    std::string_view title; ///< over the field
    HolePart part;
    bool ofTheSite;       ///< stays as it is when the next hole is begun
    bool isDepth = false; ///< drawn beside the logs
};

/// The hole's name first; in the order in which they are entered.
[[nodiscard]] std::span<const HoleField> holeFields();

/// What keeps the field's text in `hole` from coming back out of a run file as it was entered, or the hole's
/// name from being part of a file name; one sentence, empty when nothing does. Some texts share their room in
/// the file: they are judged together.
[[nodiscard]] std::string holeFieldProblem(const HoleField& field, const HoleDetails& hole);

/// Without blanks at its ends; nothing entered is one blank, as the settings keep it.
[[nodiscard]] std::string storedHoleText(std::string_view text);

/// The details to begin another hole with: what belongs to the site stays.
[[nodiscard]] HoleDetails nextHole(const HoleDetails& hole);

} // namespace tarvik
