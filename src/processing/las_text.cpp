#include "processing/las_text.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace tarvik {

namespace {

constexpr std::size_t columnWidth = 12;
constexpr std::size_t holeTextWidth = 30;
constexpr std::size_t curveWidth = 38;
constexpr std::string_view lineEnd = "\r\n";

void addLine(std::string& text, std::initializer_list<std::string_view> pieces) {
    for (const std::string_view piece : pieces) text += piece;
    text += lineEnd;
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string rightAligned(std::string_view text, std::size_t width) {
    return std::string(width - std::min(text.size(), width), ' ').append(text);
}

/// Right-aligned with at least one blank in front.
std::string inColumn(std::string_view text) {
    return " " + rightAligned(text, columnWidth - 1);
}

std::string depthField(double depth) {
    return rightAligned(formatPicture(depth, "###0.00"), columnWidth);
}

std::string holeText(std::string_view text) {
    return padded(inLasFile(text), holeTextWidth);
}

std::string nameOf(const LasCurve& curve) {
    return inLasFile(curve.name);
}

void addCurve(std::string& text, std::string_view name, std::string_view unit, std::size_t number) {
    addLine(text, {padded(std::string(name).append(".").append(unit), curveWidth), " :  ",
                   formatPicture(number, "#0"), "   ", name});
}

} // namespace

std::string inLasFile(std::string_view text) {
    std::string ansi = toAnsi(trimmed(text));
    std::ranges::replace(ansi, '~', '-');
    return ansi;
}

std::string_view lasDepthUnit(DepthUnits units) {
    return units == DepthUnits::metres ? "M" : "FT";
}

std::string lasVersionSection() {
    return "~Version Information Section\r\n"
           "VERS.           2.0     :   CWLS log ASCII Standard -VERSION 2.0\r\n"
           "WRAP.           NO      :   One line per depth step\r\n";
}

std::string lasWellSection(const LasWell& well, const HoleDetails& hole, std::string_view date) {
    const std::string unit = inLasFile(well.unit);
    std::string text = "~Well Information Section\r\n"
                       "#MNEM.UNIT      VALUE/NAME      DESCRIPTION\r\n"
                       "#--------     --------------   ---------------------\r\n";
    addLine(text, {"STRT.", unit, "     ", depthField(well.start), "         ", ":START DEPTH"});
    addLine(text, {"STOP.", unit, "     ", depthField(well.stop), "         ", ":STOP DEPTH"});
    addLine(text, {"STEP.", unit, "     ", depthField(well.step), "         ", ":STEP"});
    addLine(text, {"NULL.", "      ", rightAligned(well.nullText, columnWidth), "         ", ":NULL"});
    addLine(text, {"COMP.   ", holeText(hole.company), "  :COMPANY"});
    addLine(text, {"WELL.   ", holeText(hole.holeId), "  :WELL"});
    addLine(text, {"FLD .   ", holeText(hole.prospect), "  :FIELD"});
    addLine(text, {"LOC .   ", holeText(hole.coordinates), "  :LOCATION"});
    addLine(text, {"PROV.   ", holeText(hole.area), "  :PROVINCE"});
    addLine(text, {"SRVC.   ", holeText(hole.contractor), "  :SERVICE COMPANY"});
    addLine(text, {"DATE.   ", holeText(date), "  :LOG DATE"});
    addLine(text, {"UWI .   1234567890                      :UNIQUE WELL ID"}); // no well identifier is known
    return text;
}

std::string lasCurveSection(std::string_view depthUnit, std::span<const LasCurve> curves) {
    std::string text = "~CURVE INFORMATION\r\n"
                       "#MNEM.UNIT                               CURVE DESCRIPTION\r\n"
                       "#-------------                           -----------------\r\n";
    std::size_t number = 1;
    addCurve(text, "Depth", inLasFile(depthUnit), number);
    for (const LasCurve& curve : curves) addCurve(text, nameOf(curve), inLasFile(curve.unit), ++number);
    return text;
}

std::string lasFilterNote(std::span<const LasCurve> curves) {
    std::string text;
    addLine(text, {"#"});
    if (std::ranges::none_of(curves, [](const LasCurve& curve) { return curve.filter.has_value(); })) {
        addLine(text, {"# NOTE : No data channels have been filtered.  Data is raw data."});
    } else {
        addLine(text, {"# NOTE : Data channels have been filtered as below"});
        for (const LasCurve& curve : curves) {
            addLine(text, {"#        ", nameOf(curve), " - ",
                           curve.filter ? std::to_string(*curve.filter) + " pt" : std::string("None")});
        }
    }
    addLine(text, {"#"});
    return text;
}

std::string lasParameterSection(std::string_view azimuth, std::string_view inclination) {
    std::string text = "~Parameter Information Section\r\n"
                       "#MNEM.UNIT         VALUE            DESCRIPTION\r\n"
                       "#-----------     --------------   ---------------------\r\n";
    addLine(text, {"HOLEAZIM.DEG        ", inLasFile(azimuth), "               : Hole azimuth"});
    addLine(text, {"HOLEINCL.DEG        ", inLasFile(inclination), "               : Hole inclination"});
    return text;
}

std::string lasColumnLine(std::span<const LasCurve> curves) {
    std::string text = padded("~A     Depth", columnWidth);
    for (const LasCurve& curve : curves) {
        const std::string name = nameOf(curve);
        text += name.size() <= columnWidth ? rightAligned(name, columnWidth) : " " + name;
    }
    return text.append(lineEnd);
}

void appendLasRow(std::string& text, double depth, std::span<const std::vector<float>> columns,
                  std::size_t row, int decimals, std::string_view nullText) {
    appendFixed(text, depth, 2, columnWidth);
    for (const auto& column : columns) {
        if (std::isfinite(column[row])) {
            text += ' ';
            appendFixed(text, column[row], decimals, columnWidth - 1);
        } else {
            text += inColumn(nullText);
        }
    }
    text += lineEnd;
}

} // namespace tarvik
