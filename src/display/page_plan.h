// How a log is laid on paper: one long page, or pages that overlap so that they can be glued together.
//
// Everything is millimetres from the upper left corner of a page. The depth scale is given and never adapted:
// what does not fit goes onto the next page.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvik {

struct Paper {
    double width = 210;
    double height = 0; ///< 0: one page as long as the log
    double margin = 8;
};

/// "A4", "A3", "Letter", "Continuous".
[[nodiscard]] std::optional<Paper> paperNamed(std::string_view name);

struct PageRequest {
    Paper paper;
    double headingHeight = 0; ///< 0: without a heading
    double headHeight = 0;    ///< of the track heads
    double from = 0;          ///< metres
    double to = 0;            ///< metres, below `from`
    double perMillimetre = 0.2;
};

struct PlannedPage {
    bool heading = false; ///< at the upper margin
    double headTop = 0;   ///< of the track heads
    double bodyTop = 0;
    double bodyHeight = 0;         ///< 0: a page for the heading alone
    double top = 0;                ///< metres at bodyTop
    double repeated = 0;           ///< so much of the body stands on the page before as well
    std::optional<double> tailTop; ///< of the track heads repeated below the last of the log
};

struct PagePlan {
    double width = 0;
    double height = 0;
    double margin = 0;
    std::vector<PlannedPage> pages;
    bool cut = false;    ///< the log goes on behind the last page: there would be more than mostPages
    bool noRoom = false; ///< the heads leave the log no room worth printing

    [[nodiscard]] double contentWidth() const { return width - 2 * margin; }
};

constexpr double pageOverlap = 10; ///< mm that a page repeats of the one before
constexpr double footerHeight = 6; ///< mm
/// Readers of PDF go no further than 200 inches.
constexpr double longestPage = 5000;
/// A plan ends here, though the log goes on: a mistyped depth or scale must not fill the memory.
constexpr std::size_t mostPages = 10'000;

[[nodiscard]] PagePlan planPages(const PageRequest& request);

} // namespace tarvik
