// Colours of a log display: the inks of the curves and what they are drawn on. A curve names its ink; the
// scheme says what that ink is by day, by night and on paper, so that a template survives a change of theme.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// Told apart by people who confuse red and green; as greys they differ too, and no two curves of a track
/// share a line style by default.
enum class Ink { black, blue, vermilion, green, purple, orange, sky, brown };
constexpr std::size_t inkCount = 8;

[[nodiscard]] std::string_view inkName(Ink ink);
[[nodiscard]] std::optional<Ink> inkFrom(std::string_view name);

struct Scheme {
    std::string name;
    Colour surface;  ///< behind the curves
    Colour head;     ///< behind the track heads
    Colour frame;    ///< borders of the tracks
    Colour gridFine; ///< each stronger than the one before, all fainter than any curve
    Colour gridMedium;
    Colour gridHeavy;
    Colour text;
    Colour quietText;
    Colour mark; ///< annotations, casing and fluid level
    std::array<Colour, inkCount> inks;

    [[nodiscard]] Colour ink(Ink which) const { return inks[static_cast<std::size_t>(which)]; }
};

/// By day on a screen, by night, and on paper.
[[nodiscard]] Scheme lightScheme();
[[nodiscard]] Scheme darkScheme();
[[nodiscard]] Scheme paperScheme();
/// "light", "dark" or "paper"; nothing for another name.
[[nodiscard]] std::optional<Scheme> schemeNamed(std::string_view name);

/// A part of `over` (0 to 1) laid upon `under`.
[[nodiscard]] Colour blended(Colour under, Colour over, double part);

} // namespace tarvik
