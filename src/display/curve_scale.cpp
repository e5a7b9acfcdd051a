#include "display/curve_scale.h"

#include "base/number_picture.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tarvik {

bool isUsable(const CurveScale& scale) {
    if (!std::isfinite(scale.left) || !std::isfinite(scale.right) || scale.left == scale.right) return false;
    if (scale.kind == ScaleKind::linear) return std::isfinite(1 / (scale.right - scale.left));
    // Below the smallest normal number there are no decades to count.
    constexpr double least = std::numeric_limits<double>::min();
    return scale.left >= least && scale.right >= least && std::log10(scale.left) != std::log10(scale.right);
}

ScaleMap::ScaleMap(const CurveScale& scale) : kind_(scale.kind) {
    const bool usable = isUsable(scale);
    const bool logarithmic = kind_ == ScaleKind::logarithmic;
    const double left = !usable ? 0 : logarithmic ? std::log10(scale.left) : scale.left;
    const double right = !usable ? 1 : logarithmic ? std::log10(scale.right) : scale.right;
    origin_ = left;
    factor_ = usable ? 1 / (right - left) : 0;
}

double ScaleMap::fraction(double value) const {
    if (kind_ == ScaleKind::logarithmic) {
        if (value <= 0) return factor_ < 0 ? furthest : -furthest;
        value = std::log10(value);
    }
    return std::clamp((value - origin_) * factor_, -furthest, furthest);
}

double ScaleMap::value(double fraction) const {
    const double straight = factor_ == 0 ? origin_ : origin_ + fraction / factor_;
    return kind_ == ScaleKind::logarithmic ? std::pow(10, straight) : straight;
}

CurveScale backupOf(const CurveScale& scale, int n) {
    const ScaleMap map(scale);
    return {scale.kind, map.value(n), map.value(n + 1)};
}

std::string scaleEndText(double value) {
    if (value == 0) return "0";
    const double size = std::abs(value);
    // Four figures say all that a scale end has to.
    if (size >= 1e7 || size < 1e-4) {
        std::array<char, 32> digits{};
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 4);
        return {digits.data(), end.ptr};
    }
    const double unit = std::pow(10, std::floor(std::log10(size)) - 3);
    std::string text = formatPicture(std::round(value / unit) * unit, "0.######");
    if (text.back() == '.') text.pop_back();
    return text;
}

} // namespace tarvik
