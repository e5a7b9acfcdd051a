// Folders copied by the operating system, beside the program and without waiting for them. A copy under way
// goes on when the program ends.
#pragma once

#include "platform/files.h"

#include <vector>

#include <sys/types.h>

namespace tarvik {

class BackgroundCopies {
  public:
    struct Ended {
        Path target;
        bool whole; ///< false: something was not copied
    };

    /// Everything in `source`, folders within folders, into `target`, over what is there. False when the
    /// copying could not be started.
    bool start(const Path& source, const Path& target);

    /// Those that have ended since the last call.
    [[nodiscard]] std::vector<Ended> ended();

  private:
    struct Copy {
        pid_t process;
        Path target;
    };
    std::vector<Copy> copies_;
};

} // namespace tarvik
