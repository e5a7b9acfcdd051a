#include "lcu/append_check.h"

#include <algorithm>

namespace tarvik {

namespace {

bool sameChannelNames(const RunHeader& a, const RunHeader& b) {
    return std::ranges::equal(a.channels, b.channels, {}, &RunChannel::name, &RunChannel::name);
}

} // namespace

std::optional<std::string> CheckLatestRunSpecs(const RunHeader& current, const RunHeader& latest) {
    if (current.setup.units != latest.setup.units) {
        return "Current depth units NOT the same as latest run file.\r\n"
               "Change depth units if you wish to append data.";
    }
    if (current.setup.interval != latest.setup.interval) {
        return "Current sampling interval NOT the same as latest run file.\r\n"
               "Change sampling interval if you wish to append data.";
    }
    if (current.setup.direction != latest.setup.direction) {
        return "Logging direction NOT the same as latest run file.\r\n"
               "Change logging direction if you wish to append data.";
    }
    // Records of another kind behind those on file could not be told apart when they are read back.
    if (current.setup.sampling != latest.setup.sampling) {
        return "Sampling method NOT the same as latest run file.\r\n"
               "Change sampling method if you wish to append data.";
    }
    if (current.toolMode != latest.toolMode || !sameChannelNames(current, latest)) {
        return "Tool mode or channels NOT the same as latest run file.\r\n"
               "Choose the tool mode of that run, or start a new run.";
    }
    return std::nullopt;
}

} // namespace tarvik
