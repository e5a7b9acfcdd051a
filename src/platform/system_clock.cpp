#include "platform/system_clock.h"

#include <ctime>

namespace tarvik {

CivilTime localTime(std::chrono::system_clock::time_point moment) {
    using namespace std::chrono;
    const auto whole = floor<seconds>(moment);
    const std::time_t count = system_clock::to_time_t(whole);
    std::tm parts{};
    ::localtime_r(&count, &parts);
    return {.year = parts.tm_year + 1900,
            .month = parts.tm_mon + 1,
            .day = parts.tm_mday,
            .hour = parts.tm_hour,
            .minute = parts.tm_min,
            .second = parts.tm_sec,
            .millisecond = static_cast<int>(floor<milliseconds>(moment - whole).count())};
}

CivilTime SystemClock::now() const {
    return localTime(std::chrono::system_clock::now());
}

std::int64_t SystemClock::tickMs() const {
    return tickMicros() / 1000;
}

std::int64_t SystemClock::tickMicros() const {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace tarvik
