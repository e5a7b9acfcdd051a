#include "platform/places.h"

#include "base/failure.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tarvik {

namespace {

constexpr const char* makersEquipment = "BrennaTools-Winches.dat";
constexpr const char* makersCalibrations = "Brenna-Calibrations.dat";
constexpr const char* companyLogo = "complogo.bmp";

/// The folder that an XDG variable names; by its rules a relative one does not count.
Path xdgFolder(const Environment& environment, const std::string& name, const Path& otherwise) {
    const Path folder = environment(name).value_or("");
    return folder.is_absolute() ? folder : otherwise;
}

bool liesIn(const Path& root, const Path& folder) {
    const Path relative = folder.lexically_relative(root);
    return !relative.empty() && *relative.begin() != "..";
}

Path normal(const Path& folder) {
    const Path shortest = folder.lexically_normal();
    return shortest.has_filename() ? shortest : shortest.parent_path();
}

/// "x" and "~/x" count from `base`.
Path below(const Path& base, const std::string& folder) {
    return normal(base / (folder.starts_with("~/") ? folder.substr(2) : folder));
}

} // namespace

Path Places::drive(std::string_view letter) const {
    if (letter.empty()) return homeDrive;
    const char first = letter.front();
    const char capital = first >= 'a' && first <= 'z' ? static_cast<char>(first - 'a' + 'A') : first;
    const auto found = drives.find(capital);
    return found == drives.end() ? homeDrive : found->second;
}

Path Places::projectsFolder(std::string_view driveLetter) const {
    return drive(driveLetter) / "Brenna Projects";
}

Path Places::runHistoryFolder() const {
    return homeDrive / "Tarvik_RunHistory";
}

std::vector<Path> Places::rescueFolders() const {
    std::vector<Path> folders{runHistoryFolder()};
    std::error_code none;
    const Path temporary = std::filesystem::temp_directory_path(none);
    if (root.empty() && !none) folders.push_back(temporary);
    return folders;
}

std::optional<std::string> environmentVariable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    return value;
}

Places placesFor(const std::optional<Path>& home, const Environment& environment, Path installedData) {
    Places places;
    places.installedData = std::move(installedData);
    if (home) {
        places.root = normal(std::filesystem::absolute(*home));
        places.settingsFile = places.root / "settings.ini";
        places.programFolder = places.root / "program";
        places.homeDrive = places.root / "C";
        return places;
    }
    const Path user = environment("HOME").value_or("");
    if (!user.is_absolute()) {
        throw Failure(ErrorNumber::pathNotFound,
                      "The variable HOME does not name your folder: set it, or use --home DIR");
    }
    places.settingsFile =
        xdgFolder(environment, "XDG_CONFIG_HOME", user / ".config") / "tarvik" / "settings.ini";
    places.programFolder = xdgFolder(environment, "XDG_DATA_HOME", user / ".local" / "share") / "tarvik";
    places.homeDrive = user;
    return places;
}

void takeDrives(Places& places, const std::map<char, std::string>& folders, const ProblemReport& report) {
    const Path base = places.root.empty() ? places.homeDrive : places.root;
    for (const auto& [letter, text] : folders) {
        if (text.empty()) continue;
        const Path folder = below(base, text);
        if (places.root.empty() || liesIn(places.root, folder)) {
            (letter == 'C' ? places.homeDrive : places.drives[letter]) = folder;
        } else if (report) {
            report(places.settingsFile.string() + ": drive " + letter + " is set to " + folder.string() +
                   ", which lies outside " + places.root.string() +
                   "; the folder of drive C takes its place");
        }
    }
}

Path installedDataFolder(const Files& files, const Path& executable, Path fallback) {
    Path beside = executable.parent_path().parent_path() / "share" / "tarvik";
    return files.exists(beside) ? beside : std::move(fallback);
}

Path runningExecutable() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

void fillProgramFolder(const Places& places, Files& files) {
    files.createFolder(places.programFolder);
    for (const char* const name : {makersEquipment, makersCalibrations, companyLogo}) {
        const Path wanted = places.programFolder / name;
        const Path installed = places.installedData / name;
        if (!files.exists(wanted) && files.exists(installed)) files.copy(installed, wanted);
    }
}

void requireMakersEquipment(const Places& places, const Files& files) {
    if (const Path equipment = places.programFolder / makersEquipment; !files.exists(equipment)) {
        throw Failure(ErrorNumber::fileNotFound,
                      equipment.string() + ": the maker's equipment file is missing, here and in " +
                          places.installedData.string() +
                          "; copy it here from the maker's disk, or install Tarvik again");
    }
}

} // namespace tarvik
