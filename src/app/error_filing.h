// Where the entry of an error went, as the operator is told beside the error itself.
#pragma once

#include <string>

namespace tarvik {

struct ErrorFiling {
    std::string file;    ///< full path of the error file
    std::string problem; ///< why the entry is not in it; empty when it is
};

/// Who analyses error files.
inline constexpr const char* supportAddress = "support@tarvik.example";

/// Where the error is recorded, and what to send to the support address.
[[nodiscard]] inline std::string errorFileAdvice(const ErrorFiling& filed) {
    if (filed.problem.empty())
        return "The error is recorded in\n" + filed.file + "\nPlease send this file to " + supportAddress +
               " for analysis.";
    return "The error could not be recorded in\n" + filed.file + "\n(" + filed.problem +
           ")\nPlease copy this text and send it to " + supportAddress + " for analysis.";
}

} // namespace tarvik
