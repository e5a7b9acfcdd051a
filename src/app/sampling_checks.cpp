#include "app/sampling_checks.h"

#include "base/number_picture.h"
#include "base/sampling_words.h"
#include "base/text.h"

namespace tarvik {

std::string intervalProblem(Sampling sampling, std::string_view text) {
    const IntervalRange range = intervalRange(sampling);
    const auto number = parseNumber(text);
    if (number && *number >= range.least && *number <= range.most) return {};
    return "A number from " + shortestNumber(range.least) + " to " + shortestNumber(range.most) +
           (sampling == Sampling::depth ? " centimetres of cable." : " seconds.");
}

std::string intervalInWords(Sampling sampling, DepthUnits units, std::string_view text) {
    const auto number = parseNumber(text);
    if (sampling == Sampling::time || !number) return {};
    return intervalText(sampling, static_cast<float>(*number), units);
}

std::string wholeNumberProblem(std::string_view text, long long least, long long most) {
    const auto number = parseInteger(text);
    if (number && *number >= least && *number <= most) return {};
    return "A whole number from " + std::to_string(least) + " to " + std::to_string(most) + ".";
}

} // namespace tarvik
