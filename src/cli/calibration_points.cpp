#include "cli/calibration_points.h"

#include "base/failure.h"
#include "base/text.h"

#include <array>
#include <charconv>
#include <sstream>

namespace tarvik {

std::vector<FitPoint> readPoints(std::istream& in) {
    std::vector<FitPoint> points;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        std::istringstream words(line);
        std::string x, y, more;
        if (!(words >> x) || x.front() == '#') continue;
        words >> y >> more;
        const auto xValue = parseNumber(x), yValue = parseNumber(y);
        if (!xValue || !yValue || !more.empty()) {
            throw Failure(ErrorNumber::typeMismatch, "standard input, line " + std::to_string(number) +
                                                         ": expected two numbers \"x y\", found \"" + line +
                                                         "\"");
        }
        points.push_back({*xValue, *yValue});
    }
    return points;
}

std::string exactNumber(double value) {
    std::array<char, 40> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 17).ptr};
}

} // namespace tarvik
