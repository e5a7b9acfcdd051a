// The data log of the diagnostics console: a heading and a line for each scan, up to 25,000 characters.
#pragma once

#include "lcu/diagnostics_scan.h"

#include <cstddef>
#include <string>

namespace tarvik {

class DiagnosticsLog {
  public:
    static constexpr std::size_t capacity = 25'000;

    /// " Depth   Time  Chan1  Chan2  … Status/Current/Volt" with its line end.
    [[nodiscard]] static std::string heading(int channels);
    /// Depth "###0.00", time "####00", each count "####0" under its heading, then status, current and
    /// voltage, CR LF.
    [[nodiscard]] static std::string line(const DiagnosticsScan& scan);

    /// Appends the line of the scan, before it a heading when the log is empty or the number of channels is
    /// another one; a log that is full says so instead. Returns what was appended.
    std::string diag_logdata(const DiagnosticsScan& scan);
    void clear();

    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    std::string text_;
    int channels_ = -1; ///< of the last heading
};

} // namespace tarvik
