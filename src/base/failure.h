// The one kind of exception that the program throws on purpose: a numbered run-time error with a sentence
// that says what failed, where, and what to do. It never crosses a routine's guard (app/error_trap.h).
#pragma once

#include <stdexcept>
#include <string>

namespace tarvik {

/// Numbers as they stand in the error file; support engineers know them by heart.
enum class ErrorNumber : int {
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    internal = 51,
    fileNotFound = 53,
    deviceError = 57,
    diskFull = 61,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
    badFile = 321, ///< the file is not of the format that its name says
};

class Failure : public std::runtime_error {
  public:
    Failure(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    [[nodiscard]] ErrorNumber number() const { return number_; }

  private:
    ErrorNumber number_;
};

} // namespace tarvik
