// Where a room without a log of its own tells what went wrong while it went on working: one sentence that
// names the file, the place in it and the remedy.
#pragma once

#include <functional>
#include <string>

namespace tarvik {

using ProblemReport = std::function<void(const std::string& problem)>;

} // namespace tarvik
