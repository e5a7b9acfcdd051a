// Hole details without a field of their own in the run file, kept there as words:
// "Casing depth: 30; diameter: 114; thickness: 6". Fields that are blank are left out.
#pragma once

#include "base/run_header.h"

#include <span>
#include <string>
#include <string_view>

namespace tarvik {

struct HoleWord {
    std::string_view label;
    std::string HoleDetails::*value;
};

/// The three texts of the run file, in its order.
[[nodiscard]] std::span<const HoleWord> drillingWords();
[[nodiscard]] std::span<const HoleWord> casingWords();
[[nodiscard]] std::span<const HoleWord> fluidWords();

[[nodiscard]] std::string joinHoleWords(std::span<const HoleWord> words, const HoleDetails& hole);
/// Takes the text apart again; a text in other words leaves the fields as they are.
void splitHoleWords(std::string_view text, std::span<const HoleWord> words, HoleDetails& hole);

} // namespace tarvik
