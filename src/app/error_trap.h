// The guard at the door of every routine.
//
// A routine names itself on entry, advances its level at checkpoints and lets nothing escape: an error is
// reported once, with form, routine and level, and the routine returns its fallback. The caller's place comes
// back on return, so an error in A after calling B is filed under A. Entering allocates nothing, so that the
// decoder can carry the guard on every scan.
#pragma once

#include "base/failure.h"

#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace tarvik {

/// The step counter of the running routine: `level = 2` at a checkpoint.
using Level = int;

/// Where the program is: texts with static storage.
struct ErrorPlace {
    std::string_view form;
    std::string_view routine;
    Level level = 0;
};

struct ErrorReport {
    std::string form;
    std::string routine;
    Level level = 0;
    int number = 0;
    std::string description;
};

class ErrorReporter {
  public:
    virtual ~ErrorReporter() = default;
    virtual void report(const ErrorReport& error) = 0;
};

class ErrorTrap {
  public:
    explicit ErrorTrap(ErrorReporter& reporter, bool enabled = true)
        : reporter_(reporter), enabled_(enabled) {}
    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;

    /// Runs `body(level)` as the routine of that name in the current form.
    template <class Result, class Body>
    Result run(std::string_view routine, Result fallback, Body&& body) {
        return runIn(place_.form, routine, std::move(fallback), std::forward<Body>(body));
    }
    template <class Body>
    void run(std::string_view routine, Body&& body) {
        runIn(place_.form, routine, true, [&](Level& level) {
            body(level);
            return true;
        });
    }

    /// The same, entering another form (screen).
    template <class Result, class Body>
    Result runIn(std::string_view form, std::string_view routine, Result fallback, Body&& body) {
        const Return back(place_);
        place_ = {form, routine, 0};
        if (!enabled_) return body(place_.level);
        try {
            return body(place_.level);
        } catch (const Failure& failure) {
            report(static_cast<int>(failure.number()), failure.what());
        } catch (const std::bad_alloc&) {
            report(static_cast<int>(ErrorNumber::outOfMemory), "Out of memory");
        } catch (const std::exception& error) {
            report(static_cast<int>(ErrorNumber::internal), error.what());
        }
        return fallback;
    }

    [[nodiscard]] bool enabled() const { return enabled_; }
    [[nodiscard]] const ErrorPlace& place() const { return place_; }

    /// Files an error of the current place without leaving the routine. Never throws: a report that fails
    /// must not become an error of its own.
    void report(int number, std::string_view description) noexcept {
        try {
            reporter_.report({std::string(place_.form), std::string(place_.routine), place_.level, number,
                              std::string(description)});
        } catch (...) { // nothing is left to tell it to
        }
    }

  private:
    /// Puts the caller's place back, whichever way the routine is left.
    class Return {
      public:
        explicit Return(ErrorPlace& place) : place_(place), caller_(place) {}
        ~Return() { place_ = caller_; }
        Return(const Return&) = delete;
        Return& operator=(const Return&) = delete;

      private:
        ErrorPlace& place_;
        ErrorPlace caller_;
    };

    ErrorReporter& reporter_;
    bool enabled_;
    ErrorPlace place_{"Introscreen", "", 0};
};

} // namespace tarvik
