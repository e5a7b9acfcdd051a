#include "files/hole_words.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array drilling{HoleWord{"Driller's depth", &HoleDetails::drillerDepth},
                              HoleWord{"Hole diameter", &HoleDetails::diameter},
                              HoleWord{"Collar elevation", &HoleDetails::collarElevation}};
constexpr std::array casing{HoleWord{"Casing depth", &HoleDetails::casingDepth},
                            HoleWord{"diameter", &HoleDetails::casingDiameter},
                            HoleWord{"thickness", &HoleDetails::casingThickness}};
constexpr std::array fluid{HoleWord{"Fluid", &HoleDetails::fluidType},
                           HoleWord{"level", &HoleDetails::fluidLevel}};

constexpr std::string_view between = "; ";

/// Where "label: " begins at the front of the text or behind a separator.
std::size_t findLabel(std::string_view text, std::string_view label) {
    const std::string mark = std::string(label) + ": ";
    if (text.starts_with(mark)) return 0;
    const auto found = text.find(std::string(between) + mark);
    return found == std::string_view::npos ? found : found + between.size();
}

} // namespace

std::span<const HoleWord> drillingWords() {
    return drilling;
}
std::span<const HoleWord> casingWords() {
    return casing;
}
std::span<const HoleWord> fluidWords() {
    return fluid;
}

std::string joinHoleWords(std::span<const HoleWord> words, const HoleDetails& hole) {
    std::string text;
    for (const HoleWord& word : words) {
        const std::string_view value = trimmed(hole.*word.value);
        if (value.empty()) continue;
        if (!text.empty()) text += between;
        text.append(word.label).append(": ").append(value);
    }
    return text;
}

void splitHoleWords(std::string_view text, std::span<const HoleWord> words, HoleDetails& hole) {
    for (const HoleWord& word : words) {
        const std::size_t label = findLabel(text, word.label);
        if (label == std::string_view::npos) continue;
        std::size_t end = text.size();
        for (const HoleWord& other : words) {
            const std::size_t next = findLabel(text, other.label);
            if (next != std::string_view::npos && next > label) end = std::min(end, next - between.size());
        }
        const std::size_t begin = label + word.label.size() + 2;
        hole.*word.value = std::string(text.substr(begin, end - begin));
    }
}

} // namespace tarvik
