#include "lcu/run_order.h"

#include "app/sampling_checks.h"
#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

void applyLimits(const RunLimits& limits, RunSetup& setup) {
    constexpr double open = 1e9;
    setup.endDistance = limits.endDistance;
    setup.limitsOverride = !limits.top && !limits.bottom;
    setup.topDepth = limits.top.value_or(-open);
    setup.bottomDepth = limits.bottom.value_or(open);
    if (!setup.limitsOverride && setup.topDepth >= setup.bottomDepth)
        throw BadOrder(OrderPart::limits, "The top depth must be less than the bottom depth");
    const bool up = setup.direction == Direction::up;
    if (limits.endDistance > 0 && !(up ? limits.top : limits.bottom))
        throw BadOrder(OrderPart::limits,
                       std::string("The distance to the end needs a ") +
                           (up ? "top depth: the run goes up" : "bottom depth: the run goes down"));
}

/// An interval that no box could step by is a slip of the finger.
float sampledEvery(const Settings& settings) {
    const Sampling sampling = settings.sampling();
    const IntervalRange range = intervalRange(sampling);
    const double interval = settings.samplingInterval.value();
    if (interval < range.least || interval > range.most) {
        throw BadOrder(OrderPart::interval, "The sampling interval must be a number from " +
                                                shortestNumber(range.least) + " to " +
                                                shortestNumber(range.most) +
                                                (sampling == Sampling::depth ? " centimetres" : " seconds") +
                                                ", not " + settings.samplingInterval.text());
    }
    return static_cast<float>(interval);
}

} // namespace

std::string missingForRun(const Settings& settings, const CurrentTool& tool, const CurrentWinch& winch) {
    const std::pair<bool, const char*> parts[]{{trimmed(settings.currentProject).empty(), "a project"},
                                               {trimmed(settings.hole.holeId).empty(), "a hole"},
                                               {trimmed(tool.record.get(tool::code)).empty(), "a tool"},
                                               {trimmed(winch.record.get(winch::code)).empty(), "a winch"}};
    std::string words;
    auto left = std::ranges::count_if(parts, [](const auto& part) { return part.first; });
    for (const auto& [missing, what] : parts) {
        if (!missing) continue;
        --left;
        words += (words.empty() ? "Still to be chosen: " : left == 0 ? " and " : ", ") + std::string(what);
    }
    return words.empty() ? words : words + ".";
}

RunSetup runSetupFrom(const Settings& settings, const RunLimits& limits) {
    RunSetup setup;
    setup.sampling = settings.sampling();
    setup.interval = sampledEvery(settings);
    setup.direction = settings.direction();
    setup.units = settings.units();
    setup.winchDepthFactor = settings.winchScaleFactor.value();
    if (!(setup.winchDepthFactor > 0))
        throw BadOrder(OrderPart::winch, "The winch scale factor must be greater than 0, not " +
                                             settings.winchScaleFactor.text());
    setup.declination = static_cast<float>(settings.declination.value());
    setup.magneticMarker = settings.magneticMarker;
    applyLimits(limits, setup);
    return setup;
}

RunOrder runOrderFrom(const Settings& settings, const Places& places, const RunLimits& limits) {
    const std::string project(trimmed(settings.currentProject));
    if (project.empty()) throw BadOrder(OrderPart::project, "You must select a project");
    if (project == "." || project == ".." || project.find_first_of("/\\") != std::string::npos)
        throw BadOrder(OrderPart::project,
                       "A project is a single folder, which \"" + project + "\" cannot be the name of");
    const std::string hole(trimmed(settings.hole.holeId));
    if (hole.empty()) throw BadOrder(OrderPart::hole, "You must select a hole");
    const Path folder = places.projectsFolder(settings.projectDrive) / project;
    std::vector<Path> rescueFolders = places.rescueFolders();
    rescueFolders.insert(rescueFolders.begin(), folder);
    return {.project = project,
            .projectFolder = folder,
            .hole = hole,
            .holeDetails = settings.hole,
            .setup = runSetupFrom(settings, limits),
            .screenScale = {},
            .rescueFolders = std::move(rescueFolders)};
}

} // namespace tarvik
