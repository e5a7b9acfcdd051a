#include "display/curve_rules.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

using enum CurveGroup;

constexpr CurveScale open{ScaleKind::linear, 0, 0};
constexpr CurveScale decades{ScaleKind::logarithmic, 0.2, 2000};

constexpr CurveScale linear(double left, double right) {
    return {ScaleKind::linear, left, right};
}

// The first that fits counts; the last fits everything.
constexpr std::array<CurveRule, 51> rules{{
    {"GAMMA", correlation, linear(0, 150), Ink::green},
    {"GR", correlation, linear(0, 150), Ink::green},
    {"NGAM", correlation, linear(0, 150), Ink::green},
    {"CAL", correlation, linear(6, 16), Ink::black, false, "IN"},
    {"BS", correlation, linear(6, 16), Ink::brown, false, "IN"},
    {"CALIPER", correlation, open, Ink::black},
    {"BS", correlation, open, Ink::brown},
    {"CAL", correlation, open, Ink::black},
    {"SPEED", other, open, Ink::black},
    {"SP", correlation, open, Ink::blue},
    {"SELF POT", correlation, open, Ink::blue},
    {"COLLAR", correlation, open, Ink::black},
    {"RESIST", resistivity, decades, Ink::vermilion},
    {"RES", resistivity, decades, Ink::vermilion},
    {"GUARD", resistivity, decades, Ink::vermilion},
    {"LL", resistivity, decades, Ink::vermilion},
    {"IL", resistivity, decades, Ink::blue},
    {"RT", resistivity, decades, Ink::vermilion},
    {"MSFL", resistivity, decades, Ink::black},
    {"SFL", resistivity, decades, Ink::black},
    {"MLL", resistivity, decades, Ink::black},
    {"COND SH", resistivity, open, Ink::blue},
    {"COND DE", resistivity, open, Ink::vermilion},
    {"DENSITY", porosity, linear(1.95, 2.95), Ink::vermilion},
    {"RHO", porosity, linear(1.95, 2.95), Ink::vermilion},
    {"DEN", porosity, linear(1.95, 2.95), Ink::vermilion},
    {"DRHO", porosity, linear(-0.25, 0.25), Ink::black},
    {"PEF", porosity, linear(0, 10), Ink::purple},
    {"PORO", porosity, open, Ink::blue},
    {"NPHI", porosity, linear(0.45, -0.15), Ink::blue},
    {"NEUT", porosity, open, Ink::blue},
    {"DT", sonic, linear(140, 40), Ink::purple, false, "US/F"},
    {"DT", sonic, linear(500, 100), Ink::purple},
    {"SONIC", sonic, open, Ink::purple},
    {"NEAR TIME", sonic, open, Ink::purple},
    {"FAR TIME", sonic, open, Ink::blue},
    {"TEMP", fluid, open, Ink::vermilion},
    {"HOLE TEMP", fluid, open, Ink::orange},
    {"COND", fluid, open, Ink::blue},
    {"FLUID TEMP", fluid, open, Ink::vermilion},
    {"CHAMBER TEMP", fluid, open, Ink::purple},
    {"AZ", direction, linear(0, 360), Ink::blue, true},
    {"HAZI", direction, linear(0, 360), Ink::blue, true},
    {"INCLIN", direction, open, Ink::vermilion},
    {"DEVI", direction, open, Ink::vermilion},
    {"MAG", field, open, Ink::blue},
    {"TOTAL FIELD", field, open, Ink::black},
    {"ACC", gravity, open, Ink::green},
    {"EAST", way, open, Ink::vermilion},
    {"NORTH", way, open, Ink::blue},
    {"", other, open, Ink::blue},
}};

bool fits(const CurveRule& rule, std::string_view name, std::string_view unit) {
    if (!unit.starts_with(rule.unit)) return false;
    if (rule.word == "SP" || rule.word == "BS") return name == rule.word;
    if (rule.word.size() <= 4) return name.starts_with(rule.word);
    return name.find(rule.word) != std::string_view::npos;
}

} // namespace

const CurveRule& curveRule(std::string_view channel, std::string_view unit) {
    const std::string name = upperCase(trimmed(channel));
    const std::string units = upperCase(trimmed(unit));
    if (name == "DISTANCE") return *std::ranges::find(rules, "EAST", &CurveRule::word);
    return *std::ranges::find_if(rules, [&](const CurveRule& rule) { return fits(rule, name, units); });
}

} // namespace tarvik
