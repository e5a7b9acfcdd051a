// Between the texts of the core (UTF-8) and those of the toolkit.
#pragma once

#include <QString>

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

} // namespace tarvik
