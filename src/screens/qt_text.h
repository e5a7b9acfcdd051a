// Between the texts of the core (UTF-8) and those of the toolkit.
#pragma once

#include "base/number_picture.h"

#include <QString>

#include <cmath>
#include <string>
#include <string_view>

namespace tarvik {

[[nodiscard]] inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// "&Serial number" → "Serial number"
[[nodiscard]] inline QString withoutMnemonic(QString text) {
    return text.remove('&');
}

[[nodiscard]] inline std::string plain(const QString& text) {
    return text.toStdString();
}

/// A scale as it is spoken of, 200 as "1:200"; small ones with a tenth.
[[nodiscard]] inline QString scaleText(double scale) {
    const bool tenths = scale < 9.95 && std::abs(scale - std::round(scale)) >= 0.05;
    return "1:" + qt(formatPicture(scale, tenths ? "0.0" : "0"));
}

} // namespace tarvik
