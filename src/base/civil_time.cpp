#include "base/civil_time.h"

#include <array>
#include <chrono>

namespace tarvik {

namespace {

constexpr std::array<std::string_view, 7> dayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> monthNames{"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};

std::chrono::sys_days daysOf(const CivilTime& time) {
    using namespace std::chrono;
    return sys_days(year(time.year) / month(static_cast<unsigned>(time.month)) /
                    day(static_cast<unsigned>(time.day)));
}

std::string twoDigits(int value) {
    return {static_cast<char>('0' + value / 10 % 10), static_cast<char>('0' + value % 10)};
}

/// How often the first character of `rest` repeats at its start.
std::size_t repeats(std::string_view rest) {
    const auto end = rest.find_first_not_of(rest.front());
    return end == std::string_view::npos ? rest.size() : end;
}

std::string dayText(const CivilTime& time, std::size_t letters) {
    const auto name = dayNames[static_cast<std::size_t>(weekday(time))];
    if (letters >= 4) return std::string(name);
    if (letters == 3) return std::string(name.substr(0, 3));
    return twoDigits(time.day);
}

std::string monthText(const CivilTime& time, std::size_t letters) {
    const auto name = monthNames[static_cast<std::size_t>(time.month - 1)];
    if (letters >= 4) return std::string(name);
    if (letters == 3) return std::string(name.substr(0, 3));
    return twoDigits(time.month);
}

std::string yearText(const CivilTime& time, std::size_t letters) {
    const std::string last = twoDigits(time.year % 100);
    return letters >= 4 ? twoDigits(time.year / 100) + last : last;
}

int clockHour(int hour, bool twelveHours) {
    if (!twelveHours) return hour;
    return hour % 12 == 0 ? 12 : hour % 12;
}

} // namespace

CivilTime plusMilliseconds(const CivilTime& time, std::int64_t milliseconds) {
    using namespace std::chrono;
    const auto moment = daysOf(time) + hours(time.hour) + minutes(time.minute) + seconds(time.second) +
                        std::chrono::milliseconds(time.millisecond + milliseconds);
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss clock(moment - day);
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .hour = static_cast<int>(clock.hours().count()),
            .minute = static_cast<int>(clock.minutes().count()),
            .second = static_cast<int>(clock.seconds().count()),
            .millisecond = static_cast<int>(clock.subseconds().count())};
}

int weekday(const CivilTime& date) {
    return static_cast<int>(std::chrono::weekday(daysOf(date)).c_encoding());
}

std::string formatDate(const CivilTime& time, std::string_view picture) {
    constexpr std::string_view amPm = "am/pm";
    const bool twelveHours = picture.find(amPm) != std::string_view::npos;
    std::string text;
    bool afterHours = false; // "mm" behind the hours means minutes
    while (!picture.empty()) {
        if (picture.starts_with(amPm)) {
            text += time.hour < 12 ? "am" : "pm";
            picture.remove_prefix(amPm.size());
            continue;
        }
        const char letter = picture.front();
        const std::size_t count = repeats(picture);
        switch (letter) {
        case 'd':
            text += dayText(time, count);
            break;
        case 'm':
            text += afterHours ? twoDigits(time.minute) : monthText(time, count);
            break;
        case 'y':
            text += yearText(time, count);
            break;
        case 'h':
            text += twoDigits(clockHour(time.hour, twelveHours));
            break;
        case 's':
            text += twoDigits(time.second);
            break;
        default:
            text.append(count, letter);
            break;
        }
        if (letter == 'h') afterHours = true;
        if (letter == 'm') afterHours = false;
        picture.remove_prefix(count);
    }
    return text;
}

} // namespace tarvik
