#include "files/hole_fields.h"

#include "base/file_names.h"
#include "base/text.h"
#include "files/hole_words.h"
#include "files/run_file_layout.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

namespace block2 = run_file::block2;
using Hole = HoleDetails;
using enum HolePart;

constexpr std::array fields{
    HoleField{&Hole::holeId, "holeid", "Hole name", hole, false},
    HoleField{&Hole::company, "company", "Company", hole, true},
    HoleField{&Hole::prospect, "prospect", "Prospect", hole, true},
    HoleField{&Hole::area, "area", "Area", hole, true},
    HoleField{&Hole::contractor, "contractor", "Drilling contractor", hole, true},
    HoleField{&Hole::operatorName, "operator", "Operator", hole, true},
    HoleField{&Hole::coordinates, "coordinates", "Coordinates", hole, false},
    HoleField{&Hole::permanentDatum, "permanentdatum", "Permanent datum", hole, true},
    HoleField{&Hole::collarElevation, "collarelevation", "Collar elevation", hole, false},
    HoleField{&Hole::drillerDepth, "drillerdepth", "Driller's depth", hole, false},
    HoleField{&Hole::diameter, "diameter", "Hole diameter", hole, false},
    HoleField{&Hole::casingType, "casingtype", "Casing type", casingAndFluid, false},
    HoleField{&Hole::casingDepth, "casingdepth", "Casing depth", casingAndFluid, false, true},
    HoleField{&Hole::casingDiameter, "casingdiameter", "Casing diameter", casingAndFluid, false},
    HoleField{&Hole::casingThickness, "casingthickness", "Casing thickness", casingAndFluid, false},
    HoleField{&Hole::fluidType, "fluidtype", "Borehole fluid", casingAndFluid, false},
    HoleField{&Hole::fluidLevel, "fluidlevel", "Fluid level", casingAndFluid, false, true},
};

struct Room {
    std::string Hole::*value;
    std::size_t width;
};

/// Texts with a place of their own in the second block.
constexpr std::array ownRooms{
    Room{&Hole::holeId, block2::holeName.width},
    Room{&Hole::company, block2::company.width},
    Room{&Hole::prospect, block2::field.width},
    Room{&Hole::area, block2::province.width},
    Room{&Hole::contractor, block2::serviceCompany.width},
    Room{&Hole::operatorName, block2::operatorName.width},
    Room{&Hole::coordinates, block2::location.width},
    Room{&Hole::permanentDatum, block2::permanentDatum.width},
    Room{&Hole::casingType, block2::casingType.width},
};

struct SharedRoom {
    std::span<const HoleWord> words;
    std::size_t width;
    std::string_view who;
};

std::array<SharedRoom, 3> sharedRooms() {
    return {{{drillingWords(), block2::drillingWords.width, "Driller's depth, diameter and elevation"},
             {casingWords(), block2::casingWords.width, "Depth, diameter and thickness of the casing"},
             {fluidWords(), block2::fluidWords.width, "Fluid and fluid level"}}};
}

std::string tooLong(std::size_t length, std::size_t width, const std::string& who) {
    return who + " for " + std::to_string(width) + " characters; shorten by " +
           std::to_string(length - width) + ".";
}

std::string roomProblem(const HoleField& field, const HoleDetails& details) {
    for (const Room& room : ownRooms) {
        if (room.value != field.value) continue;
        const std::size_t length = toAnsi(trimmed(details.*field.value)).size();
        return length > room.width ? tooLong(length, room.width, "The run file has room") : "";
    }
    for (const SharedRoom& room : sharedRooms()) {
        if (std::ranges::find(room.words, field.value, &HoleWord::value) == room.words.end()) continue;
        const std::size_t length = toAnsi(joinHoleWords(room.words, details)).size();
        if (length <= room.width) return {};
        return std::string(room.who) + " do not fit into the run file together; shorten by " +
               std::to_string(length - room.width) + ".";
    }
    return {};
}

} // namespace

std::span<const HoleField> holeFields() {
    return fields;
}

std::string holeFieldProblem(const HoleField& field, const HoleDetails& details) {
    const std::string& text = details.*field.value;
    if (field.value == &Hole::holeId && !trimmed(text).empty()) {
        if (std::string problem = nameProblem(text); !problem.empty()) return problem;
    }
    if (!isAnsi(text)) return "The run file keeps Western European letters only.";
    return trimmed(text).empty() ? std::string() : roomProblem(field, details);
}

std::string storedHoleText(std::string_view text) {
    const std::string_view content = trimmed(text);
    return content.empty() ? " " : std::string(content);
}

HoleDetails nextHole(const HoleDetails& details) {
    HoleDetails next = details;
    for (const HoleField& field : fields) {
        if (!field.ofTheSite) next.*field.value = " ";
    }
    return next;
}

} // namespace tarvik
