#include "platform/disk_failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace tarvik {

namespace {

struct Meaning {
    int error;
    ErrorNumber number;
    std::string_view remedy;
};

constexpr std::array meanings{
    Meaning{ENOSPC, ErrorNumber::diskFull, "free some space on the disk, then try again"},
    Meaning{EDQUOT, ErrorNumber::diskFull, "delete something of yours on the disk, then try again"},
    Meaning{EFBIG, ErrorNumber::diskFull, "the disk or a limit set for you allows no larger file"},
    Meaning{EROFS, ErrorNumber::permissionDenied, "the disk is write-protected: choose another one"},
    Meaning{ENOENT, ErrorNumber::fileNotFound, "check the name"},
    Meaning{ENOTDIR, ErrorNumber::pathNotFound, "a part of the path is a file, not a folder"},
    Meaning{EISDIR, ErrorNumber::pathFileAccess, "name a file in that folder"},
    Meaning{ENAMETOOLONG, ErrorNumber::pathFileAccess, "choose a shorter name"},
    Meaning{ELOOP, ErrorNumber::pathFileAccess, "remove the links that lead in a circle"},
    Meaning{EMFILE, ErrorNumber::pathFileAccess, "close some programs, then try again"},
    Meaning{ENFILE, ErrorNumber::pathFileAccess, "close some programs, then try again"},
    Meaning{EIO, ErrorNumber::deviceError, "the disk is faulty or was removed: check it"},
    Meaning{ENODEV, ErrorNumber::deviceError, "the disk is faulty or was removed: check it"},
};
constexpr Meaning unknown{0, ErrorNumber::pathFileAccess, "check the file, its folder and the disk"};

struct Words {
    std::string_view done;
    std::string_view right;
};

/// By DiskAction.
constexpr std::array words{
    Words{"looked at", "you need the right to open the folders on its path"},
    Words{"read", "you need the right to read it"},
    Words{"written", "you need the right to write the file and to change its folder"},
    Words{"cut back", "you need the right to write the file"},
    Words{"removed", "you need the right to change its folder"},
    Words{"created as a folder", "you need the right to change the folder above it"},
};

Meaning meaningOf(const Path& file, DiskAction action, int error) {
    if (error == EACCES || error == EPERM) {
        return {error, ErrorNumber::permissionDenied, words[static_cast<std::size_t>(action)].right};
    }
    if (error == ENOENT && action == DiskAction::write) {
        std::error_code ignored;
        if (!std::filesystem::exists(std::filesystem::absolute(file, ignored).parent_path(), ignored))
            return {error, ErrorNumber::pathNotFound, "its folder is not there: create it"};
    }
    const auto* const found = std::ranges::find(meanings, error, &Meaning::error);
    return found == meanings.end() ? unknown : *found;
}

} // namespace

Failure diskFailure(const Path& file, DiskAction action, int error) {
    const Meaning meaning = meaningOf(file, action, error);
    const char* const english = ::strerrordesc_np(error); // strerror would follow the locale
    std::string text = file.string();
    text.append(": cannot be ").append(words[static_cast<std::size_t>(action)].done).append(": ");
    text.append(english != nullptr ? english : "unknown error").append("; ").append(meaning.remedy);
    return {meaning.number, text};
}

} // namespace tarvik
