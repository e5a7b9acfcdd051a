// Projects and holes as the disk has them. A project is a folder in "Brenna Projects" on a drive; the holes
// of a project are those that the names of its run files begin with (HOLE_TOOL_NN.kvx).
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "base/civil_time.h"
#include "platform/files.h"
#include "platform/places.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

struct ProjectRow {
    std::string name;
    int runs = 0;
    std::optional<CivilTime> lastRun; ///< when its latest run file was last written
    std::string problem;              ///< why its folder cannot be read; empty when it can
};

struct HoleRow {
    std::string name;
    int runs = 0;
    CivilTime lastRun;
    Path latestRun; ///< the file last written
};

/// The hole that a run file belongs to; empty for a name that is no run file's.
[[nodiscard]] std::string_view holeOfRunFile(std::string_view fileName);

/// "C:  /home/crew" and so on, drive C first: the drives on which projects can lie.
[[nodiscard]] std::vector<std::string> driveList(const Places& places);

/// `name` before the others, without doubles, at most `most`.
[[nodiscard]] std::vector<std::string> mostRecentFirst(std::vector<std::string> names,
                                                       const std::string& name, std::size_t most = 4);

class Projects {
  public:
    Projects(ErrorTrap& errors, Files& files, StatusLog& log) : errors_(errors), files_(files), log_(log) {}

    /// By name; empty without the folder, or after an error, which is reported.
    [[nodiscard]] std::vector<ProjectRow> list(const Path& projectsFolder);
    /// By name.
    [[nodiscard]] std::vector<HoleRow> holes(const Path& projectFolder);

    /// What keeps `name` from being a new project; empty when nothing does. A name that differs from a
    /// project's in capitals only is taken too: other systems could not tell the two folders apart.
    [[nodiscard]] static std::string newNameProblem(const std::vector<ProjectRow>& projects,
                                                    std::string_view name);
    /// False when the folder could not be made; the error is reported.
    bool create(const Path& projectsFolder, std::string_view name);

  private:
    [[nodiscard]] ProjectRow look(const Path& projectFolder) const;

    ErrorTrap& errors_;
    Files& files_;
    StatusLog& log_;
};

} // namespace tarvik
