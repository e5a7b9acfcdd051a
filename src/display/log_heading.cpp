#include "display/log_heading.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "files/run_details.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// The texts that are there, with a separator between them.
std::string joined(std::initializer_list<std::string> parts, std::string_view separator) {
    std::string text;
    for (const std::string& part : parts) {
        if (trimmed(part).empty()) continue;
        if (!text.empty()) text += separator;
        text += trimmed(part);
    }
    return text;
}

std::string labelled(std::string_view label, const std::string& value) {
    return trimmed(value).empty() ? "" : std::string(label) + std::string(trimmed(value));
}

std::string unitLetter(const ReviewLog& log) {
    if (log.otherDepthUnit) return " " + *log.otherDepthUnit;
    return log.header.setup.units == DepthUnits::metres ? " m" : " ft";
}

std::string intervalText(const ReviewLog& log) {
    if (log.steps() == 0) return "no depth on file";
    const DepthExtent logged = log.extent();
    return formatPicture(logged.from, "0.00") + " to " + formatPicture(logged.to, "0.00") + unitLetter(log);
}

/// A LAS file says nothing of calibrations, sampling, tool or winch: blank fields for them would
/// look like an omission, default ones would be invented.
void keepWhatLasSays(LogHeading& heading, const ReviewLog& log) {
    heading.calibrations.clear();
    std::erase_if(heading.fields, [](const HeadingField& field) {
        return field.value.empty() || field.label == "Direction" || field.label == "Sampling";
    });
    if (log.otherDepthUnit) {
        heading.remarks.push_back("The index of the LAS file is in \"" + *log.otherDepthUnit +
                                  "\"; the depth scale counts each as a metre.");
    }
}

std::string samplingSaid(const RunSetup& setup) {
    const bool byDepth = setup.sampling == Sampling::depth;
    return std::string(byDepth ? "by depth, " : "by time, ") + shortestNumber(setup.interval) +
           (byDepth ? " cm" : " s");
}

std::vector<HeadingField> fieldsOf(const ReviewLog& log) {
    const RunHeader& run = log.header;
    const HoleDetails& hole = run.hole;
    return {{"Prospect", hole.prospect},
            {"Area", hole.area},
            {"Coordinates", hole.coordinates},
            {"Permanent datum", hole.permanentDatum},
            {"Collar elevation", hole.collarElevation},
            {"Driller's depth", hole.drillerDepth},
            {"Run date", joined({run.runDate, run.startTime}, "  ")},
            {"Logged interval", intervalText(log)},
            {"Direction", run.setup.direction == Direction::up ? "up" : "down"},
            {"Tool", joined({run.tool.code, run.tool.name}, "  ")},
            {"Tool serial number", run.tool.serialNumber},
            {"Tool mode", run.toolModeName},
            {"Winch", joined({run.winch.code, run.winch.name, run.winch.serialNumber}, "  ")},
            {"Sampling", samplingSaid(run.setup)},
            {"Operator", hole.operatorName},
            {log.las ? "Service company" : "Contractor", hole.contractor},
            {"Hole diameter", hole.diameter},
            {"Casing",
             joined({hole.casingType, labelled("to ", hole.casingDepth),
                     labelled("diameter ", hole.casingDiameter), labelled("wall ", hole.casingThickness)},
                    ", ")},
            {"Fluid", joined({hole.fluidType, labelled("level ", hole.fluidLevel)}, ", ")}};
}

/// Enough to recognise a calibration by; the run file holds all of them.
std::string fiveFigures(double value) {
    if (value == 0) return "0";
    const double unit = std::pow(10, std::floor(std::log10(std::abs(value))) - 4);
    return shortestNumber(static_cast<float>(std::round(value / unit) * unit));
}

std::string coefficientsText(const Calibration& calibration) {
    const int terms = std::clamp(calibration.order + 1, 1, maxCoefficients);
    std::string text;
    for (int i = 0; i < terms; ++i) {
        if (i > 0) text += "   ";
        text += fiveFigures(calibration.coefficients[static_cast<std::size_t>(i)]);
    }
    return text;
}

void addCalibrations(LogHeading& heading, const RunHeader& header, const LogDisplay& display) {
    for (const Track& track : display.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            const auto found = std::ranges::find(header.channels, curve->channel, &RunChannel::name);
            if (found == header.channels.end()) continue;
            const Calibration& made = found->calibration;
            if (made.state == "None") {
                heading.calibrations.push_back(
                    {curve->channel, "not calibrated", "", "", "", "counts as logged"});
            } else {
                heading.calibrations.push_back({curve->channel, made.state, made.fitName,
                                                joined({made.date, made.kind}, ", "), made.calibratedBy,
                                                coefficientsText(made)});
            }
        }
    }
}

/// All curves, or as many as have room on a line.
std::string titleOf(const LogDisplay& display) {
    constexpr std::size_t room = 90; // letters
    std::string title;
    int more = 0;
    for (const Track& track : display.tracks) {
        for (const LogCurve* curve : shownCurves(track)) {
            if (more > 0 || title.size() + curve->channel.size() > room) {
                ++more;
            } else {
                title += (title.empty() ? "" : ", ") + curve->channel;
            }
        }
    }
    return more > 0 ? title + " and " + std::to_string(more) + " more" : title;
}

void addRemarks(LogHeading& heading, const ReviewLog& log) {
    for (std::string_view rest = log.header.notes; !rest.empty();) {
        const auto end = std::min(rest.find('\n'), rest.size());
        const auto text = trimmed(rest.substr(0, end));
        if (!text.empty()) heading.remarks.emplace_back(text);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (log.reversed) heading.remarks.emplace_back("Logged upwards; shown from the top down.");
    if (log.truncated) heading.remarks.emplace_back("The file holds more depth steps than are shown.");
    if (!skippedText(log).empty()) {
        heading.remarks.push_back(skippedText(log) + " are left out.");
    }
}

} // namespace

LogHeading headingOf(const ReviewLog& log, const LogDisplay& display) {
    LogHeading heading;
    heading.company = trimmed(log.header.hole.company);
    heading.hole = trimmed(log.header.hole.holeId);
    heading.title = titleOf(display);
    heading.fields = fieldsOf(log);
    addCalibrations(heading, log.header, display);
    addRemarks(heading, log);
    if (log.las) keepWhatLasSays(heading, log);
    return heading;
}

double headingMillimetres(const LogHeading& heading) {
    const auto rows = static_cast<double>((heading.fields.size() + headingColumns - 1) / headingColumns);
    const auto lines =
        heading.calibrations.empty() ? 0.0 : static_cast<double>(heading.calibrations.size()) + 1;
    const double table = headingTitle + rows * headingRow + lines * headingLine;
    if (heading.remarks.empty()) return table;
    return table + (static_cast<double>(heading.remarks.size()) + 1) * headingLine + headingFoot;
}

} // namespace tarvik
