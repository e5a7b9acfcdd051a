#include "platform/background_copy.h"

#include <csignal>
#include <spawn.h>
#include <string>
#include <sys/wait.h>

extern char** environ;

namespace tarvik {

bool BackgroundCopies::start(const Path& source, const Path& target) {
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
    copies_.push_back({process, target});
    return true;
}

std::vector<BackgroundCopies::Ended> BackgroundCopies::ended() {
    std::vector<Ended> ended;
    std::erase_if(copies_, [&ended](const Copy& copy) {
        int status = 0;
        if (::waitpid(copy.process, &status, WNOHANG) == 0) return false;
        ended.push_back({copy.target, WIFEXITED(status) && WEXITSTATUS(status) == 0});
        return true;
    });
    return ended;
}

} // namespace tarvik
