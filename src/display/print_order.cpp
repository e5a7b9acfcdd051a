#include "display/print_order.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double rollMargin = 4; // mm; rolls are printed to the edge, but heads do not reach it

std::string_view word(bool value, std::string_view yes, std::string_view no) {
    return value ? yes : no;
}

} // namespace

Paper paperOf(const PrintOrder& order) {
    Paper paper = paperNamed(order.paper).value_or(Paper{});
    if (order.landscape) std::swap(paper.width, paper.height);
    if (order.continuous) {
        paper.height = 0;
        paper.margin = rollMargin;
    }
    return paper;
}

std::optional<double> scaleFromText(std::string_view text) {
    text = trimmed(text);
    const auto number = parseNumber(text.starts_with("1:") ? text.substr(2) : text);
    if (!number || !(*number >= 0.1 && *number <= 1e6)) return std::nullopt;
    return number;
}

std::string scaleInWords(double scale) {
    return "1:" + shortestNumber(std::round(scale * 100) / 100);
}

std::string timeScaleInWords(double scale) {
    return shortestNumber(std::round(perMillimetreAt(scale, Axis::time) * 1000) / 1000) + " s/mm";
}

std::string scaleInInches(double scale) {
    constexpr double inchesOf100Feet = 1200;
    return shortestNumber(std::round(inchesOf100Feet / scale * 1000) / 1000) + " in per 100 ft";
}

std::string planProblem(const PagePlan& plan) {
    if (plan.noRoom) {
        return "The heads of the tracks leave the log no room on a page; take longer paper, or fewer curves "
               "in a "
               "track";
    }
    if (!plan.cut) return {};
    return "This would be more than " + std::to_string(mostPages) +
           " pages; take a smaller scale or a part of the log";
}

std::string printSummary(const PrintOrder& order, const PagePlan& plan) {
    if (const std::string problem = planProblem(plan); !problem.empty()) return problem + ".";
    const double millimetres =
        (order.interval.to - order.interval.from) / perMillimetreAt(order.scale, order.axis);
    const std::string length = formatPicture(millimetres / 1000, "0.00") + " m of paper";
    const std::size_t pages = plan.pages.size();
    if (order.continuous && pages == 1) {
        return "One page, " + formatPicture(plan.width / 10, "0.0") + " cm wide and " +
               formatPicture(plan.height / 1000, "0.00") + " m long";
    }
    const std::string paper = order.continuous ? "long pages" : order.paper;
    return std::to_string(pages) + (pages == 1 ? " page " : " pages ") + paper + ", " + length;
}

std::string rememberedText(const PrintOrder& order) {
    return order.paper + " " + std::string(word(order.landscape, "landscape", "portrait")) + " " +
           std::string(word(order.continuous, "continuous", "pages")) + " " +
           std::string(word(order.heading, "heading", "plain"));
}

void remember(PrintOrder& order, std::string_view text) {
    for (const std::string_view paper : printPapers) {
        if (text.starts_with(std::string(paper) + " ")) order.paper = paper;
    }
    const auto holds = [text](std::string_view each) { return text.find(each) != std::string_view::npos; };
    order.landscape = holds(" landscape");
    order.continuous = holds(" continuous");
    order.heading = !holds(" plain");
}

std::string intervalProblem(std::string_view from, std::string_view to, const Extent& log, double unit) {
    const auto first = parseNumber(trimmed(from));
    const auto last = parseNumber(trimmed(to));
    if (!first || !last) return "Two numbers, the upper one first.";
    if (*first >= *last) return "The first is not above the second.";
    if (*first * unit >= log.to || *last * unit <= log.from) {
        return "There is no log there; it goes from " + formatPicture(log.from / unit, "0.00") + " to " +
               formatPicture(log.to / unit, "0.00") + ".";
    }
    return {};
}

} // namespace tarvik
