// The heading of a printed log: who, where, with what and how it was logged, as texts in the order in which
// they are read.
#pragma once

#include "base/review_log.h"
#include "display/log_display.h"

#include <array>
#include <string>
#include <vector>

namespace tarvik {

struct HeadingField {
    std::string label;
    std::string value; ///< empty: left blank, to be filled in by hand
};

struct LogHeading {
    std::string company;
    std::string hole;
    std::string title; ///< what is logged: "Gamma, Caliper, Density"
    std::string scaleLabel = "Depth scale";
    std::string scale;                ///< "1:200"
    std::string inches;               ///< the same in inches per 100 ft; empty: not said
    std::vector<HeadingField> fields; ///< three to a row
    static constexpr std::array<const char*, 6> calibrationColumns{"Channel",    "State", "Fit",
                                                                   "Calibrated", "By",    "Coefficients"};
    std::vector<std::array<std::string, 6>> calibrations; ///< one row for each shown channel
    std::vector<std::string> remarks;
};

[[nodiscard]] LogHeading headingOf(const ReviewLog& log, const LogDisplay& display);

// Heights in millimetres, so that the pages can be planned before anything is drawn.
constexpr double headingTitle = 21;
constexpr double headingRow = 8.6;
constexpr double headingLine = 4.6;
constexpr double headingFoot = 1.2; ///< below the last remark
constexpr std::size_t headingColumns = 3;

[[nodiscard]] double headingMillimetres(const LogHeading& heading);

} // namespace tarvik
