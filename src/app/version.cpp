#include "app/version.h"

#include "base/number_picture.h"

namespace tarvik {

Version programVersion() {
    // The build hands its project version to this file alone.
    return {TARVIK_VERSION_MAJOR, TARVIK_VERSION_MINOR, TARVIK_VERSION_PATCH};
}

std::string versionText(const Version& version) {
    return std::to_string(version.major) + "." + formatPicture(version.minor, "00");
}

} // namespace tarvik
