#include "base/review_log.h"

#include <cmath>
#include <limits>

namespace tarvik {

float noValue() {
    return std::numeric_limits<float>::quiet_NaN();
}
bool isNoValue(float value) {
    return std::isnan(value);
}

} // namespace tarvik
