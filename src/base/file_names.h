// What can be a file name, or part of one, on every system on which runs are read.
#pragma once

#include <string>
#include <string_view>

namespace tarvik {

/// Not empty, and without / \ : * ? " < > | and control characters.
[[nodiscard]] bool canStandInFileName(std::string_view text);

/// What is wrong with a name of the operator's choosing (a project, a hole), in one sentence for the line
/// below the field; empty when nothing is. Blanks at both ends do not count.
[[nodiscard]] std::string nameProblem(std::string_view name);

} // namespace tarvik
