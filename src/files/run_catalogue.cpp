#include "files/run_catalogue.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "files/run_file_reader.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 3> filesOfTheHole{"_NOTES.KVX", "_HOLEDETAILS.KVX", "_LITHOLOGY.KVX"};

bool isRun(const std::string& upper) {
    return upper.ends_with(".KVX") &&
           std::ranges::none_of(filesOfTheHole, [&](std::string_view end) { return upper.ends_with(end); });
}

bool isReviewable(const std::string& upper) {
    return upper.ends_with(".LAS") || isRun(upper);
}

std::vector<Path> filesThat(bool (*fit)(const std::string& upperName), const Files& files,
                            const Path& folder) {
    std::vector<Path> found;
    for (const std::string& name : files.list(folder)) {
        if (fit(upperCase(name))) found.push_back(folder / name);
    }
    return found;
}

std::string depthsText(const DepthRange& range, DepthUnits units) {
    return formatPicture(range.smallest, "###0.00") + " to " + formatPicture(range.largest, "###0.00") +
           (units == DepthUnits::metres ? " m" : " ft");
}

constexpr std::string_view inOrder = "yyyymmddhhmm"; ///< "mm" behind the hours is minutes

/// From "13-Mar-2006" and "02:05 pm".
std::string orderOf(const std::string& date, const std::string& time) {
    const auto number = [](const std::string& text, std::size_t at, std::size_t length) {
        return static_cast<int>(parseNumber(text.size() > at ? text.substr(at, length) : "").value_or(0));
    };
    CivilTime when{.year = number(date, 7, 4), .month = 1, .day = number(date, 0, 2)};
    while (when.month < 12 && date.substr(0, 7).find(formatDate(when, "-mmm-")) == std::string::npos)
        ++when.month;
    when.hour = number(time, 0, 2) % 12 + (time.ends_with("pm") ? 12 : 0);
    when.minute = number(time, 3, 2);
    return formatDate(when, inOrder);
}

} // namespace

std::vector<Path> reviewableFiles(const Files& files, const Path& folder) {
    return filesThat(isReviewable, files, folder);
}

std::vector<Path> runFiles(const Files& files, const Path& folder) {
    return filesThat(isRun, files, folder);
}

RunRow describeRun(const Files& files, const Path& file) {
    RunRow row{.file = file,
               .hole = {},
               .tool = {},
               .logged = {},
               .order = {},
               .depths = {},
               .top = 0,
               .problem = {}};
    try {
        row.order = formatDate(files.modified(file), inOrder);
        if (upperCase(file.extension().string()) == ".LAS") {
            row.tool = "LAS file";
            return row;
        }
        const RunHeader header = readRunHeader(files, file).header;
        row.hole = header.hole.holeId;
        row.tool = header.tool.name;
        row.logged = header.runDate + " " + header.startTime;
        row.order = orderOf(header.runDate, header.startTime);
        if (const auto range = readDepthRange(files, file)) {
            row.depths = depthsText(*range, header.setup.units);
            row.top = toMetres(range->smallest, header.setup.units);
        }
    } catch (const Failure& failure) {
        row.problem = failure.what();
        row.order.clear(); // what cannot be read is not what is looked for
    }
    return row;
}

} // namespace tarvik
