#include "processing/log_filter.h"

#include "base/failure.h"
#include "base/review_log.h"
#include "base/text.h"

#include <algorithm>
#include <limits>
#include <string>

namespace tarvik {

namespace {

void smooth(std::span<float> w, std::size_t n) {
    const std::size_t half = n / 2;
    if (w.size() < 2 * half + 1) return;
    float sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += w[i];
    for (std::size_t i = half; i + half < w.size(); ++i) {
        w[i] = sum / static_cast<float>(n);
        if (i + half + 1 == w.size()) break;
        sum -= w[i - half];
        sum += w[i + half + 1];
    }
}

} // namespace

std::optional<int> filterLength(std::string_view setting) {
    if (trimmed(setting) == "None") return std::nullopt;
    const auto length = parseInteger(setting);
    if (!length || *length < 1 || *length > std::numeric_limits<int>::max()) {
        throw Failure(ErrorNumber::typeMismatch,
                      "The filter \"" + std::string(setting) +
                          "\" is neither \"None\" nor a number of points from 1 on");
    }
    return static_cast<int>(*length);
}

void Logprintexport_filterlogdata(std::span<float> values, std::string_view setting) {
    const auto length = filterLength(setting);
    if (!length) return;
    for (auto begin = values.begin(); begin != values.end();) {
        const auto end = std::find_if(begin, values.end(), isNoValue);
        smooth({begin, end}, static_cast<std::size_t>(*length));
        begin = std::find_if_not(end, values.end(), isNoValue);
    }
}

} // namespace tarvik
