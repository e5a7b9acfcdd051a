// Where things lie on this machine: drives by their letter, and the folder that holds the program's own data.
#pragma once

#include "platform/files.h"

#include <functional>
#include <map>
#include <string>

namespace tarvik {

struct Places {
    Path programFolder; ///< equipment, calibrations, logo
    Path settingsFile;
    Path homeDrive;              ///< drive C
    std::map<char, Path> drives; ///< other drives, by capital letter
    Path installedData;          ///< read-only data that a first start copies from

    /// The folder behind a drive letter; an unknown letter means drive C.
    [[nodiscard]] Path drive(std::string_view letter) const;
    /// The folder "Brenna Projects" on a drive.
    [[nodiscard]] Path projectsFolder(std::string_view driveLetter) const;
    [[nodiscard]] Path runHistoryFolder() const;
};

} // namespace tarvik
