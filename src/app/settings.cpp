#include "app/settings.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>

namespace tarvik {

NumberText::NumberText(double value) : text_(shortestNumber(value)), value_(value) {}

NumberText::NumberText(std::string_view text) : text_(text) {
    const auto number = parseNumber(text);
    if (!number) throw Failure(ErrorNumber::typeMismatch, "\"" + text_ + "\" is not a number");
    value_ = *number;
}

HoleDetails blankHole() {
    HoleDetails hole;
    for (std::string* const field :
         {&hole.company, &hole.area, &hole.operatorName, &hole.drillerDepth, &hole.contractor, &hole.prospect,
          &hole.holeId, &hole.coordinates, &hole.diameter, &hole.permanentDatum, &hole.collarElevation,
          &hole.casingType, &hole.casingDepth, &hole.casingDiameter, &hole.casingThickness, &hole.fluidType,
          &hole.fluidLevel}) {
        *field = " ";
    }
    return hole;
}

std::string depthUnitsField(std::string_view text) {
    std::string field(text);
    field.resize(depthUnitsWidth, ' ');
    return field;
}

std::int16_t lcuCommsOrDefault(std::int16_t value) {
    const bool known = std::ranges::find(lcuCommsChoices, value) != lcuCommsChoices.end();
    return known ? value : lcuCommsChoices.front();
}

std::string_view intervalUnitLabel(std::string_view samplingMethod, DepthUnits units) {
    if (samplingMethod == samplingText(Sampling::time)) return "seconds";
    return units == DepthUnits::metres ? "cms" : "cms (ft)";
}

std::optional<std::size_t> driveListIndex(std::span<const std::string> drives, std::string_view letter) {
    if (letter.empty()) return std::nullopt;
    const std::string wanted = upperCase(letter.substr(0, 1));
    const auto found = std::ranges::find_if(
        drives, [&](const std::string& drive) { return upperCase(drive).starts_with(wanted); });
    if (found == drives.end()) return std::nullopt;
    return static_cast<std::size_t>(found - drives.begin());
}

} // namespace tarvik
