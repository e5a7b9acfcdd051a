#include "platform/port_problem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <grp.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tarvik {

namespace {

using Path = std::filesystem::path;

std::string comName(std::int32_t port) {
    return "COM" + std::to_string(port);
}

std::string whereToSay(std::int32_t port) {
    return "--com" + std::to_string(port) + " or under " + comName(port) +
           " in the section [Ports] of the settings";
}

/// The program that has locked the file, from the system's list of locks; empty when it does not tell.
/// A line reads "5: FLOCK  ADVISORY  WRITE 1234 00:19:7 0 EOF": process, device (hexadecimal) and inode.
std::string holder(const Path& device) {
    struct stat status {};
    if (::stat(device.c_str(), &status) != 0) return {};
    std::array<char, 48> wanted{};
    std::snprintf(wanted.data(), wanted.size(), "%02x:%02x:%lu", major(status.st_dev), minor(status.st_dev),
                  static_cast<unsigned long>(status.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, kind, nature, access, process, file;
        words >> number >> kind >> nature >> access >> process >> file;
        if (file != wanted.data()) continue;
        std::string name;
        std::getline(std::ifstream("/proc/" + process + "/comm"), name);
        return name.empty() ? std::string() : " (" + name + ", process " + process + ")";
    }
    return {};
}

PortProblem missing(int, std::int32_t port, const Path& device) {
    return {portMissing, comName(port) + " is set to " + device.string() +
                             ", which is not there: plug the adapter in, or name another device with " +
                             whereToSay(port) + "."};
}

PortProblem busy(int, std::int32_t port, const Path& device) {
    return {portBusy, device.string() + " (" + comName(port) + ") is in use by another program" +
                          holder(device) + ": close that program, then try again."};
}

PortProblem notPermitted(int, std::int32_t port, const Path& device) {
    struct stat status {};
    const group* owner = nullptr;
    if (::stat(device.c_str(), &status) == 0 && (status.st_mode & S_IRGRP) != 0 &&
        (status.st_mode & S_IWGRP) != 0 && status.st_gid != 0)
        owner = ::getgrgid(status.st_gid);
    std::string sentence = "You may not open " + device.string() + " (" + comName(port) + "): ";
    if (owner == nullptr) {
        sentence += "ask the administrator for the right to read and write it.";
    } else {
        const std::string name = owner->gr_name;
        sentence.append("add yourself to the group ").append(name);
        sentence.append(": sudo usermod -aG ").append(name).append(" $USER, then log in again.");
    }
    return {portNotPermitted, sentence};
}

PortProblem notSerial(int, std::int32_t port, const Path& device) {
    return {portFailed, device.string() + " (" + comName(port) + ") is not a serial device: name one with " +
                            whereToSay(port) + "."};
}

PortProblem refused(int error, std::int32_t port, const Path& device) {
    const char* const english = ::strerrordesc_np(error);
    return {portFailed, device.string() + " (" + comName(port) +
                            ") cannot be opened: " + (english != nullptr ? english : "unknown error") +
                            "; unplug the adapter, plug it in again, and try again."};
}

struct Meaning {
    int error;
    PortProblem (*problem)(int, std::int32_t, const Path&);
};

constexpr std::array meanings{
    Meaning{ENOENT, missing},     Meaning{ENOTDIR, missing},  Meaning{ENXIO, missing},
    Meaning{ENODEV, missing},     Meaning{EIO, missing}, // a built-in port without its hardware
    Meaning{EBUSY, busy},         Meaning{EWOULDBLOCK, busy}, Meaning{EACCES, notPermitted},
    Meaning{EPERM, notPermitted}, Meaning{ENOTTY, notSerial}, Meaning{EISDIR, notSerial},
};

} // namespace

PortProblem portProblem(int error, std::int32_t port, const Path& device) {
    const auto* const found = std::ranges::find(meanings, error, &Meaning::error);
    return (found == meanings.end() ? refused : found->problem)(error, port, device);
}

PortProblem portWithoutDevice(std::int32_t port) {
    return {portMissing, comName(port) + " has no device: name one with " + whereToSay(port) + "."};
}

} // namespace tarvik
