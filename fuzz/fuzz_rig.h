// What every fuzzer needs: a program's worth of small parts on files in memory, made anew for each input.
//
// An error that the program names itself is a fine answer to a damaged file. Any other one (an exception of
// the library, no memory) is a finding.
#pragma once

#include "app/absent_operator.h"
#include "app/error_trap.h"
#include "app/status_log.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tarvik::fuzz {

class OnlyOwnErrors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override {
        if (error.number != static_cast<int>(ErrorNumber::internal) &&
            error.number != static_cast<int>(ErrorNumber::outOfMemory))
            return;
        std::fprintf(stderr, "%s: %s\n", error.routine.c_str(), error.description.c_str());
        std::abort();
    }
};

struct Rig {
    Rig(const Path& file, const std::uint8_t* data, std::size_t size) {
        files.put(file, std::string_view(reinterpret_cast<const char*>(data), size));
    }

    MemoryFiles files;
    OnlyOwnErrors reporter;
    test::AbsentOperator operatorSide;
    ErrorTrap errors{reporter};
    VirtualClock clock;
    StatusLog log{errors, clock, files, "history"};
};

} // namespace tarvik::fuzz
