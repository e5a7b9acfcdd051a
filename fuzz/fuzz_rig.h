// What every fuzzer needs: a program's worth of small parts on files in memory, made anew for each input.
//
// An error that the program names itself is a fine answer to a damaged file. Any other one (an exception of
// the library, no memory) is a finding.
#pragma once

#include "app/error_trap.h"
#include "app/operator_side.h"
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

class Nobody final : public OperatorSide {
  public:
    void message(std::string_view, std::string_view, Icon) override {}
    Answer ask(std::string_view, std::string_view, Icon) override { return Answer::no; }
    void notice(std::string_view, std::string_view, Icon) override {}
    void showError(const ErrorReport&, std::string_view, std::string_view) override {}
    void beep() override {}
    void statusText(std::string_view) override {}
    void linkPanel(std::string_view) override {}
};

struct Rig {
    Rig(const Path& file, const std::uint8_t* data, std::size_t size) {
        files.put(file, std::string_view(reinterpret_cast<const char*>(data), size));
    }

    MemoryFiles files;
    OnlyOwnErrors reporter;
    Nobody operatorSide;
    ErrorTrap errors{reporter};
    VirtualClock clock;
    StatusLog log{errors, clock, files, "history"};
};

} // namespace tarvik::fuzz
