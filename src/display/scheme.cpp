#include "display/scheme.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, inkCount> inkNames{"black",  "blue",   "vermilion", "green",
                                                          "purple", "orange", "sky",       "brown"};

constexpr Colour rgb(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value)};
}

// Dark enough for a white ground in the sun.
constexpr std::array<Colour, inkCount> dayInks{rgb(0x16191d), rgb(0x0058a8), rgb(0xc8441b), rgb(0x00784f),
                                               rgb(0x8c3a86), rgb(0xb86e00), rgb(0x0a86bf), rgb(0x6d4a2f)};
constexpr std::array<Colour, inkCount> nightInks{rgb(0xf0f2f4), rgb(0x6db3f2), rgb(0xff8a5c), rgb(0x4fd1a1),
                                                 rgb(0xdf9bd8), rgb(0xf2b84b), rgb(0x7fdcff), rgb(0xd0ae8e)};

} // namespace

std::string_view inkName(Ink ink) {
    return inkNames[static_cast<std::size_t>(ink)];
}

std::optional<Ink> inkFrom(std::string_view name) {
    const auto found = std::ranges::find(inkNames, name);
    if (found == inkNames.end()) return std::nullopt;
    return static_cast<Ink>(found - inkNames.begin());
}

Scheme lightScheme() {
    return {.name = "light",
            .surface = rgb(0xffffff),
            .head = rgb(0xf6f8fa),
            .frame = rgb(0x6b7480),
            .gridFine = rgb(0xe9ecef),
            .gridMedium = rgb(0xd3d9de),
            .gridHeavy = rgb(0xb3bcc4),
            .text = rgb(0x16191d),
            .quietText = rgb(0x56606b),
            .mark = rgb(0x7a1f5c),
            .inks = dayInks};
}

Scheme darkScheme() {
    return {.name = "dark",
            .surface = rgb(0x14181c),
            .head = rgb(0x1c2228),
            .frame = rgb(0x77828d),
            .gridFine = rgb(0x22282e),
            .gridMedium = rgb(0x313940),
            .gridHeavy = rgb(0x49535c),
            .text = rgb(0xeef1f4),
            .quietText = rgb(0xa3aeb9),
            .mark = rgb(0xf39ad0),
            .inks = nightInks};
}

Scheme paperScheme() {
    Scheme paper = lightScheme();
    paper.name = "paper";
    paper.head = paper.surface;
    paper.frame = rgb(0x000000);
    paper.gridFine = rgb(0xdfe3e6);
    paper.gridMedium = rgb(0xc3cacf);
    paper.gridHeavy = rgb(0x98a2aa);
    paper.text = rgb(0x000000);
    paper.quietText = rgb(0x3c444c);
    return paper;
}

std::optional<Scheme> schemeNamed(std::string_view name) {
    if (name == "light") return lightScheme();
    if (name == "dark") return darkScheme();
    if (name == "paper") return paperScheme();
    return std::nullopt;
}

Colour blended(Colour under, Colour over, double part) {
    const auto mix = [part](std::uint8_t below, std::uint8_t above) {
        return static_cast<std::uint8_t>(std::lround(below + (above - below) * part));
    };
    return {mix(under.red, over.red), mix(under.green, over.green), mix(under.blue, over.blue)};
}

} // namespace tarvik
