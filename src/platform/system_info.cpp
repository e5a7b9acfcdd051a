#include "platform/system_info.h"

#include <charconv>
#include <string_view>
#include <sys/sysinfo.h>
#include <sys/utsname.h>

namespace tarvik {

namespace {

/// "6.1.0-13-amd64" without what a distribution adds.
std::string_view releaseNumbers(std::string_view release) {
    std::string_view numbers = release.substr(0, release.find_first_not_of("0123456789."));
    while (numbers.ends_with('.')) numbers.remove_suffix(1);
    return numbers;
}

} // namespace

SystemInfo querySystem() {
    SystemInfo info;
    utsname names{};
    if (::uname(&names) == 0) {
        const std::string_view numbers = releaseNumbers(names.release);
        info.release = numbers;
        info.buildText = names.version;
        const char* const end = numbers.data() + numbers.size();
        const auto major = std::from_chars(numbers.data(), end, info.major);
        if (major.ptr != end) std::from_chars(major.ptr + 1, end, info.minor);
    }
    struct sysinfo memory {};
    if (::sysinfo(&memory) == 0) {
        info.memoryBytes = std::uint64_t{memory.totalram} * memory.mem_unit;
    }
    return info;
}

} // namespace tarvik
