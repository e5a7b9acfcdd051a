#include "platform/background_copy.h"

#include <cerrno>
#include <csignal>
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
    // The program may have signals blocked that it asks for itself; the copy is to obey them.
    posix_spawnattr_t attributes;
    sigset_t none;
    sigemptyset(&none);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    const int failed = ::posix_spawnp(&process, command, nullptr, &attributes, words, environ);
    ::posix_spawnattr_destroy(&attributes);
    if (failed != 0) return false;
    std::thread([process] {
        while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }).detach();
    return true;
}

} // namespace tarvik
