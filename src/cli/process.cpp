#include "cli/process.h"

#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace tarvik {

void secureProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // In rising order each opening gets the lowest number that is free. What was to be written to a closed
    // stream is not: standard output then fails as it would have, standard error stays silent.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) != -1) continue;
        const int filled = ::open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY);
        if (filled >= 0 && filled != stream) ::close(filled);
    }
}

bool resultsDelivered() {
    if (std::cout.flush().good()) return true;
    std::cerr << "tarvik: the results could not be written to standard output: it is closed, or its disk is "
                 "full\n";
    return false;
}

} // namespace tarvik
