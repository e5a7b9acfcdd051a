// Calendar time without a zone, and the date and time texts of the logs and files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvik {

struct CivilTime {
    int year = 1970;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;

    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// Moves a time forwards or backwards across days, months and years.
[[nodiscard]] CivilTime plusMilliseconds(const CivilTime& time, std::int64_t milliseconds);

/// 0 for Sunday to 6 for Saturday.
[[nodiscard]] int weekday(const CivilTime& date);

/// Writes `time` by a date picture; names are English whatever the locale. Understood are
///   dddd ddd dd  full day name, three-letter day name, day of the month in two digits
///   mmmm mmm mm  month name, three letters, two digits (two digits of the minutes when it follows hh)
///   yyyy yy      year in four or two digits
///   hh ss        two digits; twelve-hour clock when "am/pm" occurs in the picture
///   am/pm        "am" or "pm"
/// and every other character stands for itself.
///   formatDate(t, "ddd-dd-mmm-yyyy") is "Mon-13-Mar-2006"; formatDate(t, "hh:mm am/pm") is "02:05 pm".
[[nodiscard]] std::string formatDate(const CivilTime& time, std::string_view picture);

} // namespace tarvik
