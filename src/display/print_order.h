// What is asked of a print: scale, interval, paper and layout. A value; what it costs in paper is said before
// anything is printed.
#pragma once

#include "display/page_plan.h"
#include "display/review_tools.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

struct PrintOrder {
    Axis axis = Axis::depth;
    double scale = 200; ///< 1:N
    Extent interval;    ///< metres or seconds
    std::string paper = "A4";
    bool landscape = false;
    bool continuous = false; ///< one long page as wide as the paper, as rolls and fan-fold paper are fed
    bool heading = true;
    bool equallySpaced = false;
    bool inches = true; ///< a log in feet says its scale in inches too
};

/// The papers that a printer is fed with; "Continuous" is a way of feeding, not a size of them.
constexpr std::array<std::string_view, 3> printPapers{"A4", "A3", "Letter"};

[[nodiscard]] Paper paperOf(const PrintOrder& order);

/// "1:200" or "200"; nothing when it is no scale from 1:0.1 to 1:1000000.
[[nodiscard]] std::optional<double> scaleFromText(std::string_view text);

/// 1:N to two decimals: a scale that was zoomed to has no end of digits.
[[nodiscard]] std::string scaleInWords(double scale);

/// What a millimetre is by time: "1 s/mm".
[[nodiscard]] std::string timeScaleInWords(double scale);

/// The same as it is named for logs in feet: 1:240 is "5 in per 100 ft".
[[nodiscard]] std::string scaleInInches(double scale);

/// Why a plan is not printed; empty for one that is.
[[nodiscard]] std::string planProblem(const PagePlan& plan);
/// "12 pages A4, 2.41 m of log".
[[nodiscard]] std::string printSummary(const PrintOrder& order, const PagePlan& plan);

/// What of an order is kept for the next print: paper and layout, not scale and interval. A text that is not
/// one of these leaves the order as it is.
[[nodiscard]] std::string rememberedText(const PrintOrder& order);
void remember(PrintOrder& order, std::string_view text);

/// What is wrong with an end of the interval, in one sentence; empty when nothing is. One of the numbers is
/// `unit` metres or seconds.
[[nodiscard]] std::string intervalProblem(std::string_view from, std::string_view to, const Extent& log,
                                          double unit);

} // namespace tarvik
