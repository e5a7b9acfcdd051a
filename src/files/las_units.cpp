#include "files/las_units.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 8> metres{"M",      "METRE", "METRES", "METER",
                                                 "METERS", "MTR",   "MTRS",   "MTS"};
constexpr std::array<std::string_view, 5> feet{"FT", "F", "FEET", "FOOT", "FTS"};

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

/// Header and data are rounded, each in its own way.
bool sameRounded(double a, double b) {
    return std::abs(a - b) <= 0.01 + 1e-5 * std::abs(a);
}

void convert(ReviewLog& review, DepthUnits from, DepthUnits to) {
    for (double& depth : review.depth) depth = fromMetres(toMetres(depth, from), to);
}

/// What the header says of the depths beside what the data show.
struct DepthFact {
    double said;
    double shown;
};

/// STRT, STOP and STEP, the surest first. A depth of 0 is 0 in either unit and shows nothing.
std::array<DepthFact, 3> depthFacts(const LasFacts& facts, const ReviewLog& review) {
    const std::size_t steps = review.depth.size();
    if (steps == 0) return {};
    const auto row = [&](std::size_t i) { return review.depth[review.reversed ? steps - 1 - i : i]; };
    return {DepthFact{facts.start, row(0)}, DepthFact{facts.stop, row(steps - 1)},
            DepthFact{facts.step, steps > 1 ? row(1) - row(0) : 0}};
}

/// Nothing where none of the facts tells the units apart.
std::optional<bool> depthsAreInIndexUnit(const LasFacts& facts, DepthUnits ofIndex, DepthUnits ofStart,
                                         const ReviewLog& review) {
    for (const DepthFact& fact : depthFacts(facts, review)) {
        const bool converted = sameRounded(fromMetres(toMetres(fact.shown, ofIndex), ofStart), fact.said);
        const bool asItIs = sameRounded(fact.shown, fact.said);
        if (converted != asItIs) return converted;
    }
    return std::nullopt;
}

/// STRT and the index name different units: the depths decide whose is right.
void settleContradiction(const LasHeader& header, DepthUnits ofIndex, DepthUnits ofStart, ReviewLog& review,
                         LasFindings& findings) {
    const std::string difference = "the index is in " + std::string(depthUnitsText(ofIndex)) + ", STRT in " +
                                   std::string(depthUnitsText(ofStart)) + ": ";
    const auto inIndexUnit = depthsAreInIndexUnit(header.facts, ofIndex, ofStart, review);
    if (inIndexUnit.value_or(false)) {
        convert(review, ofIndex, ofStart);
        findings.say(header.indexLine, difference + "the depths are converted to " +
                                           std::string(depthUnitsText(ofStart)) +
                                           " with 0.3048 m to the foot");
    } else {
        findings.say(header.indexLine,
                     difference + "the depths are taken as " + std::string(depthUnitsText(ofStart)) +
                         (inIndexUnit ? ", they agree with the header so" : ", they do not show otherwise"));
    }
}

} // namespace

std::optional<DepthUnits> lasDepthUnits(std::string_view text) {
    std::string unit = upperCase(trimmed(text));
    while (unit.ends_with('.')) unit.pop_back();
    if (std::ranges::find(metres, unit) != metres.end()) return DepthUnits::metres;
    if (std::ranges::find(feet, unit) != feet.end()) return DepthUnits::feet;
    return std::nullopt;
}

void settleLasDepthUnit(const LasHeader& header, ReviewLog& review, LasFindings& findings) {
    const std::string& indexUnit = header.names.front().unit;
    std::string unit = header.facts.depthUnit;
    if (unit.empty() && !indexUnit.empty()) {
        unit = indexUnit;
        findings.say(header.startLine,
                     "STRT has no unit, the depths are in the unit of the index, " + inQuotes(unit));
    }
    const auto known = lasDepthUnits(unit);
    if (!known) {
        review.otherDepthUnit = unit;
        findings.say(header.startLine,
                     "the depth unit " + inQuotes(unit) +
                         " is neither metres nor feet, depths and unit are kept as they are");
        return;
    }
    review.header.setup.units = *known;
    if (unit != "M" && unit != "FT") {
        findings.say(header.startLine, "the depth unit " + inQuotes(unit) + " is read as " +
                                           std::string(depthUnitsText(*known)));
    }
    const auto ofIndex = lasDepthUnits(indexUnit);
    if (ofIndex && *ofIndex != *known) settleContradiction(header, *ofIndex, *known, review, findings);
    if (!ofIndex && !indexUnit.empty()) {
        findings.say(header.indexLine, "the index is in " + inQuotes(indexUnit) + ", STRT in " +
                                           inQuotes(unit) + ": the depths are taken as " +
                                           std::string(depthUnitsText(*known)));
    }
}

} // namespace tarvik
