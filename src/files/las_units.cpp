#include "files/las_units.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
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

/// What header and data say together of the unit in which the index counts.
struct UnitVotes {
    bool own = false;     ///< the numbers of the data are those of the header only when they are converted
    bool ofStart = false; ///< they are those of the header as they stand

    /// A number that is not there, or 0, says nothing.
    void ask(double ofData, double ofHeader, DepthUnits index, DepthUnits start) {
        const bool same = sameRounded(ofData, ofHeader);
        const bool sameConverted = sameRounded(fromMetres(toMetres(ofData, index), start), ofHeader);
        own = own || (sameConverted && !same);
        ofStart = ofStart || (same && !sameConverted);
    }
};

/// First and last depth as logged, and the distance of the first two.
UnitVotes askForUnit(const LasFacts& facts, const ReviewLog& review, DepthUnits index, DepthUnits start) {
    UnitVotes votes;
    if (review.depth.empty()) return votes;
    const std::size_t last = review.steps() - 1;
    votes.ask(review.depth[review.asLogged(0)], facts.start, index, start);
    votes.ask(review.depth[review.asLogged(last)], facts.stop, index, start);
    if (last > 0) {
        votes.ask(std::abs(review.depth[review.asLogged(1)] - review.depth[review.asLogged(0)]),
                  std::abs(facts.step), index, start);
    }
    return votes;
}

/// STRT and the index name different units: the numbers of STRT, STOP and STEP decide whose is right.
void settleContradiction(const LasHeader& header, DepthUnits ofIndex, DepthUnits ofStart, ReviewLog& review,
                         LasFindings& findings) {
    const std::string unit(depthUnitsText(ofStart));
    const UnitVotes votes = askForUnit(header.facts, review, ofIndex, ofStart);
    std::string done = "the depths are taken as " + unit;
    if (votes.own && !votes.ofStart) {
        convert(review, ofIndex, ofStart);
        done =
            "the depths are converted to " + unit + " with 0.3048 m to the foot, STRT, STOP or STEP shows it";
    } else if (votes.ofStart && !votes.own) {
        done += ", as STRT, STOP or STEP shows";
    } else {
        done += "; STRT, STOP and STEP do not show which is right";
    }
    findings.say(header.indexLine, "the index is in " + std::string(depthUnitsText(ofIndex)) + ", STRT in " +
                                       unit + ": " + done);
}

} // namespace

std::optional<DepthUnits> lasDepthUnits(std::string_view text) {
    std::string unit = upperCase(trimmed(text));
    while (unit.ends_with('.')) unit.pop_back();
    if (std::ranges::find(metres, unit) != metres.end()) return DepthUnits::metres;
    if (std::ranges::find(feet, unit) != feet.end()) return DepthUnits::feet;
    return std::nullopt;
}

double inUnitOfStart(const LasNumber& given, std::string_view ofStart, LasFindings& findings) {
    const auto own = lasDepthUnits(given.unit);
    const auto start = lasDepthUnits(ofStart);
    if (!own || !start || *own == *start || !std::isfinite(given.number)) return given.number;
    findings.say(given.line, std::string(given.key) + " is in " + inQuotes(given.unit) + ", STRT in " +
                                 inQuotes(ofStart) + ": converted with 0.3048 m to the foot");
    return fromMetres(toMetres(given.number, *own), *start);
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
