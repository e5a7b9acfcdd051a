// The program's version, as the build names it.
#pragma once

#include <string>

namespace tarvik {

struct Version {
    int major = 0;
    int minor = 0;
    int revision = 0; ///< the build

    friend bool operator==(const Version&, const Version&) = default;
};

[[nodiscard]] Version programVersion();

/// "2.01": the minor version in two digits.
[[nodiscard]] std::string versionText(const Version& version);

} // namespace tarvik
