// Where things lie on this machine: drives by their letter, and the folder that holds the program's own data.
//
// Without a home of its own the program lives in the user's folders, as the XDG variables name them. With
// `--home DIR` everything lies below DIR: the settings in settings.ini, the program folder in program, drive
// C in C; nothing outside is read or written but the installed data that a first start copies from.
#pragma once

#include "platform/files.h"
#include "platform/problem_report.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvik {

struct Places {
    Path programFolder; ///< equipment, calibrations, logo
    Path settingsFile;
    Path homeDrive;              ///< drive C
    std::map<char, Path> drives; ///< other drives, by capital letter
    Path installedData;          ///< read-only data that a first start copies from
    Path root;                   ///< of `--home`; empty without

    /// The folder behind a drive letter ("D", "d:"); an unknown letter means drive C.
    [[nodiscard]] Path drive(std::string_view letter) const;
    /// The folder "Brenna Projects" on a drive.
    [[nodiscard]] Path projectsFolder(std::string_view driveLetter) const;
    [[nodiscard]] Path runHistoryFolder() const;
    /// For data that the folder they belong to does not take: of this machine's disks the likeliest to be
    /// another one comes last.
    [[nodiscard]] std::vector<Path> rescueFolders() const;
};

/// A variable of the environment; nothing when it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;
[[nodiscard]] std::optional<std::string> environmentVariable(const std::string& name);

/// `home` is the operand of `--home`, if given. Throws a Failure when neither it nor HOME says where to live.
[[nodiscard]] Places placesFor(const std::optional<Path>& home, const Environment& environment,
                               Path installedData);

/// Takes the folders of the drives from the settings, by capital letter; an empty one is no entry. A relative
/// folder counts from the user's home, or from DIR; one that leaves DIR is reported and not taken.
void takeDrives(Places& places, const std::map<char, std::string>& folders, const ProblemReport& report = {});

/// ../share/tarvik beside the folder of the executable when that is there, otherwise `fallback` (the folder
/// of a program that runs where it was built).
[[nodiscard]] Path installedDataFolder(const Files& files, const Path& executable, Path fallback);
[[nodiscard]] Path runningExecutable();

/// What a first start copies into the program folder, each file only when it is missing there.
void fillProgramFolder(const Places& places, Files& files);
/// Throws a Failure when the maker's equipment file is not in the program folder.
void requireMakersEquipment(const Places& places, const Files& files);

} // namespace tarvik
