#include "app/projects.h"

#include "base/file_names.h"
#include "base/text.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace tarvik {

namespace {

constexpr std::string_view extension = ".kvx";

auto moment(const CivilTime& time) {
    return std::tie(time.year, time.month, time.day, time.hour, time.minute, time.second, time.millisecond);
}

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

std::string_view holeOfRunFile(std::string_view fileName) {
    if (!fileName.ends_with(extension)) return {};
    const std::string_view name = fileName.substr(0, fileName.size() - extension.size());
    // From the end: a hole's name may hold underscores, a tool's code does not.
    const auto number = name.rfind('_');
    if (number == std::string_view::npos || number == 0 || !isNumber(name.substr(number + 1))) return {};
    const auto code = name.rfind('_', number - 1);
    if (code == std::string_view::npos || code + 1 == number) return {};
    return name.substr(0, code);
}

std::vector<std::string> driveList(const Places& places) {
    std::vector<std::string> drives{"C:  " + places.homeDrive.string()};
    for (const auto& [letter, folder] : places.drives) {
        drives.push_back(std::string(1, letter) + ":  " + folder.string());
    }
    return drives;
}

std::vector<std::string> mostRecentFirst(std::vector<std::string> names, const std::string& name,
                                         std::size_t most) {
    std::erase(names, name);
    names.insert(names.begin(), name);
    if (names.size() > most) names.resize(most);
    return names;
}

std::vector<ProjectRow> Projects::list(const Path& projectsFolder) {
    return errors_.run("Projects-list", std::vector<ProjectRow>{}, [&](Level&) {
        std::vector<ProjectRow> rows;
        for (const std::string& name : files_.folders(projectsFolder)) {
            if (!name.starts_with('.')) rows.push_back(look(projectsFolder / name));
        }
        return rows;
    });
}

/// A folder that cannot be read is a row too: the operator knows that it is there.
ProjectRow Projects::look(const Path& projectFolder) const {
    ProjectRow row{.name = projectFolder.filename().string(), .runs = 0, .lastRun = {}, .problem = {}};
    try {
        for (const std::string& file : files_.list(projectFolder)) {
            if (holeOfRunFile(file).empty()) continue;
            const CivilTime written = files_.modified(projectFolder / file);
            if (!row.lastRun || moment(*row.lastRun) < moment(written)) row.lastRun = written;
            ++row.runs;
        }
    } catch (const Failure& failure) {
        row.problem = failure.what();
    }
    return row;
}

std::vector<HoleRow> Projects::holes(const Path& projectFolder) {
    return errors_.run("Projects-holes", std::vector<HoleRow>{}, [&](Level&) {
        std::map<std::string, HoleRow, std::less<>> byName;
        for (const std::string& file : files_.list(projectFolder)) {
            const std::string name(holeOfRunFile(file));
            if (name.empty()) continue;
            const CivilTime written = files_.modified(projectFolder / file);
            HoleRow& row = byName[name];
            // Of files written in the same moment the later name is the later run.
            if (row.runs == 0 || moment(row.lastRun) <= moment(written)) {
                row.lastRun = written;
                row.latestRun = projectFolder / file;
            }
            row.name = name;
            ++row.runs;
        }
        std::vector<HoleRow> rows;
        for (auto& [name, row] : byName) rows.push_back(std::move(row));
        return rows;
    });
}

std::string Projects::newNameProblem(const std::vector<ProjectRow>& projects, std::string_view name) {
    if (std::string problem = nameProblem(name); !problem.empty()) return problem;
    if (!isAnsi(name)) return "The run file keeps Western European letters only.";
    const std::string wanted = upperCase(trimmed(name));
    const auto same =
        std::ranges::find_if(projects, [&](const ProjectRow& row) { return upperCase(row.name) == wanted; });
    if (same == projects.end()) return {};
    return "There is a project \"" + same->name + "\" already: choose it in the list.";
}

bool Projects::create(const Path& projectsFolder, std::string_view name) {
    return errors_.run("Projects-create", false, [&](Level&) {
        const Path folder = projectsFolder / trimmed(name);
        files_.createFolder(folder);
        log_.black("Project folder created : " + folder.string());
        return true;
    });
}

} // namespace tarvik
