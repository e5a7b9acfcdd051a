#include "processing/las_data.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "processing/las_again.h"
#include "processing/log_filter.h"
#include "processing/log_interpolation.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <iterator>
#include <tuple>

namespace tarvik {

namespace {

constexpr std::string_view refusal = "LAS export: ";

[[noreturn]] void refuse(const std::string& what) {
    throw Failure(ErrorNumber::typeMismatch, std::string(refusal) + what);
}

void tell(const ExportList& list, const std::string& line) {
    if (list) list(line);
}

// --- depths ------------------------------------------------------------------------------------------------

struct DepthChoice {
    double start = 0;
    double stop = 0;
    std::optional<double> step;
};

DepthChoice chooseDepths(const ReviewLog& log, const LasExportOptions& options) {
    if (log.depth.empty()) refuse("the run holds no depth steps, there is nothing to export");
    const auto [smallest, largest] = std::ranges::minmax(log.depth);
    DepthChoice choice{options.start.value_or(smallest), options.stop.value_or(largest), options.step};
    if (const auto header = lasHeaderInterval(log); header && !options.step) {
        choice.start = options.start.value_or(header->start);
        choice.stop = options.stop.value_or(header->stop);
    }
    if (!std::isfinite(choice.start) || !std::isfinite(choice.stop)) refuse("start and stop must be numbers");
    if (choice.start > choice.stop) {
        refuse("the start " + shortestNumber(choice.start) + " is greater than the stop " +
               shortestNumber(choice.stop) + ", enter the smaller depth as start");
    }
    if (choice.step && !(*choice.step > 0 && std::isfinite(*choice.step))) {
        refuse("the step " + shortestNumber(*choice.step) + " must be greater than 0");
    }
    return choice;
}

DepthSteps regularSteps(const DepthChoice& choice) {
    const double last = std::floor((choice.stop - choice.start) / *choice.step + sameDepth);
    if (last >= static_cast<double>(maxReviewSteps)) {
        refuse("the step " + shortestNumber(*choice.step) + " gives " + shortestNumber(last + 1) +
               " lines, the most is 80000: choose a larger step or a shorter interval");
    }
    return {.start = choice.start, .step = *choice.step, .count = static_cast<std::size_t>(last) + 1};
}

/// The step of depths that lie evenly, each rounded to a thousandth; 0 when they do not, or not in the two
/// decimals of the file: 0.164 ft written as 0.16 leads who counts by it 24 ft astray in 1,000.
double evenStep(const std::vector<double>& depth) {
    if (depth.size() < 2) return 0;
    const double step = (depth.back() - depth.front()) / static_cast<double>(depth.size() - 1);
    for (std::size_t i = 0; i < depth.size(); ++i) {
        if (std::abs(depth[i] - (depth.front() + static_cast<double>(i) * step)) > 0.001 + sameDepth)
            return 0;
    }
    const double written = std::round(step * 100) / 100;
    const bool leads = std::abs(written - step) * static_cast<double>(depth.size() - 1) <= 0.01;
    return leads ? std::max(written, 0.0) : 0;
}

void warnOfRounding(double step, const std::vector<double>& depth, const ExportList& list) {
    const auto off = [](double value) { return std::abs(value - std::round(value * 100) / 100); };
    constexpr double noted = 0.0004; // more than a single loses of 10,000 m, less than a thousandth
    if (off(step) * 100 > sameDepth) {
        tell(list, "Warning: the step " + shortestNumber(std::round(step * 1e6) / 1e6) +
                       " is no multiple of 0.01, depths are rounded");
    } else if (std::ranges::any_of(depth, [&](double each) { return off(each) > noted; })) {
        tell(list, "Warning: depths have more than two decimals, they are rounded");
    }
}

/// A log that goes back, appended over itself or logged to and fro, keeps its order without a step.
void warnOfTurns(const std::vector<double>& depth, const ExportList& list) {
    const auto turn = std::ranges::adjacent_find(depth, std::ranges::greater{});
    if (turn == depth.end()) return;
    tell(list, "Warning: the depths go back, from " + formatPicture(*turn, "###0.00") + " to " +
                   formatPicture(*std::next(turn), "###0.00") +
                   "; other programs may refuse that, give a step for one value at each depth");
}

// --- channels ----------------------------------------------------------------------------------------------

/// One channel of the log that can go out.
struct Source {
    std::string_view name;
    std::string_view unit;
    bool calibrated;
    const std::vector<float>* values;
    std::optional<int> filteredOver{};
};

Source sourceOf(const ReviewChannel& channel) {
    return {trimmed(channel.name), channel.unit, channel.calibrated, &channel.values, channel.filteredOver};
}

std::vector<Source> recordedSources(const ReviewLog& log) {
    std::vector<Source> sources;
    for (const ReviewChannel& channel : log.channels) sources.push_back(sourceOf(channel));
    return sources;
}

/// Of channels that share a name, as in merged LAS files, the name's second mention means the second.
template <class Range, class Projection>
auto findMention(Range&& range, std::string_view name, std::size_t mention, Projection nameOf) {
    auto found = std::ranges::end(range);
    for (auto each = std::ranges::begin(range); each != std::ranges::end(range); ++each) {
        if (std::invoke(nameOf, *each) != name) continue;
        found = each;
        if (mention-- == 0) break;
    }
    return found;
}

/// The named channels in the order of the names, `extra` (time and supply) among them.
std::vector<Source> namedSources(const ReviewLog& log, std::span<const Source> extra,
                                 std::span<const std::string> names) {
    std::vector<Source> all = recordedSources(log);
    all.insert(all.end(), extra.begin(), extra.end());
    std::vector<Source> chosen;
    for (const std::string& name : names) {
        const auto mention = std::ranges::count(chosen, trimmed(name), &Source::name);
        const auto found = findMention(all, trimmed(name), static_cast<std::size_t>(mention), &Source::name);
        if (found == all.end()) refuse("the run has no channel \"" + name + "\"");
        chosen.push_back(*found);
    }
    return chosen;
}

std::vector<Source> chooseSources(const ReviewLog& log, const std::vector<float>& time,
                                  const LasExportOptions& options) {
    if (options.channels.empty()) return recordedSources(log);
    std::vector<Source> extra;
    if (!time.empty()) extra.push_back({"TIME", "seconds", true, &time});
    for (const ReviewChannel* channel : {&log.current, &log.voltage, &log.marker}) {
        if (!channel->values.empty()) extra.push_back(sourceOf(*channel));
    }
    return namedSources(log, extra, options.channels);
}

std::vector<LasCurve> curvesOf(std::span<const Source> sources, const LasExportOptions& options) {
    std::vector<LasCurve> curves;
    for (const Source& source : sources) {
        curves.push_back({std::string(source.name), std::string(source.unit), std::nullopt});
    }
    for (const ChannelFilter& filter : options.filters) {
        if (std::ranges::find(curves, trimmed(filter.channel), &LasCurve::name) == curves.end())
            refuse("there is no channel \"" + filter.channel + "\" to be filtered");
    }
    for (auto curve = curves.begin(); curve != curves.end(); ++curve) {
        const auto mention = std::ranges::count(curves.begin(), curve, curve->name, &LasCurve::name);
        const auto filter = findMention(options.filters, curve->name, static_cast<std::size_t>(mention),
                                        [](const ChannelFilter& each) { return trimmed(each.channel); });
        if (filter != options.filters.end()) curve->filter = filterLength(filter->setting);
    }
    return curves;
}

std::vector<std::vector<float>> filteredColumns(std::span<const Source> sources,
                                                std::span<const LasCurve> curves) {
    std::vector<std::vector<float>> columns;
    columns.reserve(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) {
        columns.push_back(*sources[i].values);
        if (curves[i].filter) Logprintexport_filterlogdata(columns.back(), std::to_string(*curves[i].filter));
    }
    return columns;
}

/// An imported channel stays as filtered as its file says, whatever is done to it now.
void noteEarlierFilters(std::span<const Source> sources, std::vector<LasCurve>& curves,
                        const ExportList& list) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
        if (!sources[i].filteredOver) continue;
        if (curves[i].filter) {
            tell(list, "Warning: " + curves[i].name + " has been filtered before, over " +
                           std::to_string(*sources[i].filteredOver) + " points");
        } else {
            curves[i].filter = sources[i].filteredOver;
        }
    }
}

// --- to the depths -----------------------------------------------------------------------------------------

void warnOfStretchesNotLogged(std::span<const DepthExtent> stretches, const ExportList& list) {
    if (stretches.empty()) return;
    std::string words = "Warning: nothing was logged from " + formatPicture(stretches[0].from, "###0.00") +
                        " to " + formatPicture(stretches[0].to, "###0.00");
    if (stretches.size() > 1) words += " and in " + std::to_string(stretches.size() - 1) + " more stretches";
    tell(list, words + ", the steps there have no value");
}

/// By time the way between two scans is as long as the winch makes it.
double farthestNeighbours(const ReviewLog& log) {
    return !log.las && log.header.setup.sampling == Sampling::time ? 0 : joinLimit(log.depth);
}

void interpolate(LasData& data, const ReviewLog& log, const DepthSteps& steps, const ExportList& list) {
    const LogInterpolation interpolation(log.depth, steps, farthestNeighbours(log));
    data.depth.reserve(steps.count);
    for (std::size_t i = 0; i < steps.count; ++i) data.depth.push_back(steps.at(i));
    for (auto& column : data.columns) column = interpolation.Logprintexport_interplogdata(column);
    warnOfStretchesNotLogged(interpolation.notLogged(), list);
}

bool isChosen(double depth, double start, double stop) {
    return depth >= start - sameDepth && depth <= stop + sameDepth;
}

void refuseNoStep(std::span<const double> loaded, double start, double stop) {
    if (std::ranges::none_of(loaded, [&](double depth) { return isChosen(depth, start, stop); }))
        refuse("the run has no depth step between start and stop");
}

/// Keeps the loaded steps between start and stop. The header promises no depth that has no line: readers
/// count from its start.
void select(LasData& data, std::span<const double> loaded) {
    refuseNoStep(loaded, data.well.start, data.well.stop);
    const auto chosen = [&](double depth) { return isChosen(depth, data.well.start, data.well.stop); };
    std::ranges::copy_if(loaded, std::back_inserter(data.depth), chosen);
    if (data.depth.size() == loaded.size()) return;
    for (auto& column : data.columns) {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < loaded.size(); ++i) {
            if (chosen(loaded[i])) column[kept++] = column[i];
        }
        column.resize(kept);
    }
}

void warnOfLetters(std::string_view text, const ExportList& list) {
    if (fromAnsi(inLasFile(text)) == trimmed(text)) return;
    tell(list, "Warning: \"" + std::string(trimmed(text)) + "\" is written as \"" +
                   fromAnsi(inLasFile(text)) + "\", the file cannot hold all of its letters");
}

void warnOfTexts(const ReviewLog& log, const LasData& data, const ExportList& list) {
    const HoleDetails& hole = log.header.hole;
    for (const std::string& text : {hole.company, hole.holeId, hole.prospect, hole.coordinates, hole.area,
                                    hole.contractor, data.well.unit})
        warnOfLetters(text, list);
    for (const LasCurve& curve : data.curves) {
        warnOfLetters(curve.name, list);
        warnOfLetters(curve.unit, list);
    }
}

/// Without a null of its own, an imported file may hold the number that stands for no value here.
void warnOfNullsAmongValues(const LasData& data, int decimals, const ExportList& list) {
    constexpr double readAsNull = 1e-4;
    const double null = parseNumber(data.well.nullText).value_or(0);
    const double scale = std::pow(10.0, decimals);
    for (std::size_t i = 0; i < data.columns.size(); ++i) {
        const auto count = std::ranges::count_if(data.columns[i], [&](float value) {
            return std::isfinite(value) &&
                   std::abs(std::round(static_cast<double>(value) * scale) / scale - null) <= readAsNull;
        });
        if (count == 0) continue;
        tell(list, "Warning: " + std::to_string(count) + (count == 1 ? " value of " : " values of ") +
                       data.curves[i].name + (count == 1 ? " is" : " are") + " the null value " +
                       std::string(data.well.nullText) +
                       " and will be read as no value, choose another null value");
    }
}

} // namespace

LasData prepareLasData(const ReviewLog& log, const LasExportOptions& options, const ExportList& list) {
    if (options.decimals < 2 || options.decimals > 5) refuse("data are written with 2 to 5 decimals");
    if (!parseNumber(options.nullText)) refuse("the null value \"" + options.nullText + "\" is no number");
    const DepthChoice choice = chooseDepths(log, options);
    const std::optional<DepthSteps> steps = choice.step ? std::optional(regularSteps(choice)) : std::nullopt;

    const std::vector<float> time(log.time.begin(), log.time.end());
    const std::vector<Source> sources = chooseSources(log, time, options);
    LasData data{
        .well = {.unit = log.otherDepthUnit.value_or(std::string(lasDepthUnit(log.header.setup.units))),
                 .start = choice.start,
                 .stop = choice.stop,
                 .step = 0,
                 .nullText = options.nullText},
        .curves = curvesOf(sources, options),
        .depth = {},
        .columns = {}};
    for (const Source& source : sources) {
        if (source.values->size() != log.steps()) {
            refuse("the channel " + std::string(source.name) + " was not loaded whole, open the run again");
        }
        if (!source.calibrated) tell(list, "Warning: " + std::string(source.name) + " is not calibrated");
    }

    data.columns = filteredColumns(sources, data.curves);
    noteEarlierFilters(sources, data.curves, list);
    if (steps) {
        tell(list, "Interpolate...");
        interpolate(data, log, *steps, list);
        data.well.step = steps->step;
    } else {
        select(data, log.depth);
        const auto [smallest, largest] = std::ranges::minmax(data.depth);
        if (options.start) data.well.start = smallest;
        if (options.stop) data.well.stop = largest;
        data.well.step = log.las ? lasHeaderStep(*log.las, data.depth) : evenStep(data.depth);
    }
    warnOfTurns(data.depth, list);
    warnOfRounding(data.well.step, data.depth, list);
    warnOfTexts(log, data, list);
    warnOfNullsAmongValues(data, options.decimals, list);
    return data;
}

std::string lasDepthsProblem(const ReviewLog& log, const LasExportOptions& options) {
    try {
        const DepthChoice choice = chooseDepths(log, options);
        if (choice.step)
            std::ignore = regularSteps(choice);
        else
            refuseNoStep(log.depth, choice.start, choice.stop);
        return {};
    } catch (const Failure& failure) {
        std::string words = std::string(failure.what()).substr(refusal.size());
        words.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(words.front())));
        return words + ".";
    }
}

} // namespace tarvik
