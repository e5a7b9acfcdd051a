#include "processing/las_form.h"

#include "base/failure.h"
#include "base/text.h"
#include "processing/log_filter.h"
#include "processing/log_interpolation.h"

#include <cmath>
#include <tuple>

namespace tarvik {

std::string lasStepProblem(std::string_view text) {
    if (trimmed(text).empty()) return {};
    const auto step = parseNumber(text);
    if (step && *step > 0 && std::isfinite(*step)) return {};
    return "A number greater than 0, or nothing.";
}

std::string lasStepWarning(std::string_view text) {
    const auto step = parseNumber(text);
    if (!step || !lasStepProblem(text).empty()) return {};
    if (std::abs(*step * 100 - std::round(*step * 100)) <= sameDepth) return {};
    return "No multiple of 0.01: depths are rounded.";
}

std::string lasChannelsProblem(const LasExportOptions& options) {
    if (options.channels.empty()) return "Choose at least one channel.";
    for (const ChannelFilter& filter : options.filters) {
        try {
            std::ignore = filterLength(filter.setting);
        } catch (const Failure&) {
            return "The filter of " + filter.channel + " is None or a whole number of points, not \"" +
                   filter.setting + "\".";
        }
    }
    return {};
}

} // namespace tarvik
