// What a search met on each port, for whoever has to find out why no LCU answered.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik {

/// The farther a try came, the later it stands.
enum class PortOutcome { notThere, notPermitted, inUse, cannotOpen, silent, otherAnswer };

/// One port at one speed.
struct PortTry {
    std::int32_t port = 0;
    PortOutcome outcome = PortOutcome::silent;
    std::string problem = {}; ///< the port's own sentence, when it could not be opened
};

/// Of a code with which a port refuses to open.
[[nodiscard]] PortOutcome outcomeOfOpening(std::int32_t code);

/// One port in words: "COM1: no answer", and what to do about it.
struct PortReport {
    std::string what;
    std::string remedy;
};

/// One for each port, in the order of the search. Of the speeds of a port the one counts that came farthest.
[[nodiscard]] std::vector<PortReport> reportOf(std::span<const PortTry> tries);

} // namespace tarvik
