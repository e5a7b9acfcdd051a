#include "equipment/calibration_words.h"

#include "base/civil_time.h"
#include "base/number_picture.h"
#include "base/text.h"

namespace tarvik {

namespace {

/// 1 to 12; 0 for what is no name of a month.
int monthNamed(std::string_view name) {
    for (int month = 1; month <= 12; ++month) {
        if (upperCase(formatDate({.month = month}, "mmm")) == upperCase(name)) return month;
    }
    return 0;
}

} // namespace

CalibrationStatus statusOf(const Calibration& calibration) {
    if (calibration.state == "Synthetic") return CalibrationStatus::derived;
    if (calibration.state == "None" || calibration.order <= 0) return CalibrationStatus::none;
    return CalibrationStatus::calibrated;
}

std::string calibrationWords(const Calibration& calibration) {
    if (statusOf(calibration) == CalibrationStatus::derived) return "Computed by the program";
    if (calibration.order <= 0) return "Not calibrated: order 0, the channel reads 0";
    if (statusOf(calibration) == CalibrationStatus::none) return "Not calibrated: counts";
    return calibration.fitName + ", order " + std::to_string(calibration.order) + ", " + calibration.date +
           " " + calibration.time + " by " + calibration.calibratedBy + ", " + calibration.kind;
}

std::string sortableDate(std::string_view date) {
    constexpr std::size_t length = 11; // "dd-mmm-yyyy"
    if (date.size() != length || date[2] != '-' || date[6] != '-') return std::string(date);
    const auto day = parseInteger(date.substr(0, 2));
    const auto year = parseInteger(date.substr(7));
    const int month = monthNamed(date.substr(3, 3));
    if (!day || !year || month == 0) return std::string(date);
    return formatPicture(*year, "0000") + "-" + formatPicture(month, "00") + "-" + formatPicture(*day, "00");
}

} // namespace tarvik
