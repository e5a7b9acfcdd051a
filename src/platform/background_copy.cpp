#include "platform/background_copy.h"

#include <cerrno>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>

extern char** environ;

namespace tarvik {

bool copyInBackground(const Path& source, const Path& target) {
    std::string from = (source / ".").string();
    std::string to = target.string();
    char command[] = "cp";
    char recursive[] = "-R";
    char endOfOptions[] = "--";
    char* const words[] = {command, recursive, endOfOptions, from.data(), to.data(), nullptr};
    pid_t process = 0;
    if (::posix_spawnp(&process, command, nullptr, nullptr, words, environ) != 0) return false;
    std::thread([process] {
        while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }).detach();
    return true;
}

} // namespace tarvik
