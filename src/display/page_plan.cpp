#include "display/page_plan.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

constexpr double gap = 4;        // mm between heading and track heads
constexpr double leastBody = 60; // mm of log worth beginning on the page of the heading
constexpr double enough = 1e-6;

struct NamedPaper {
    std::string_view name;
    Paper paper;
};
constexpr std::array<NamedPaper, 4> papers{{{"A4", {210, 297, 8}},
                                            {"A3", {297, 420, 8}},
                                            {"Letter", {215.9, 279.4, 8}},
                                            {"Continuous", {215.9, 0, 4}}}};

class Planner {
  public:
    explicit Planner(const PageRequest& request)
        : request_(request), left_(std::max(0.0, (request.to - request.from) / request.perMillimetre)) {
        plan_.width = request.paper.width;
        plan_.margin = request.paper.margin;
        plan_.height = request.paper.height > 0 ? request.paper.height : wholeHeight();
    }

    PagePlan plan() {
        double at = plan_.margin;
        PlannedPage page;
        if (request_.headingHeight > 0) {
            page.heading = true;
            at += request_.headingHeight + gap;
            const double room = bodyRoom(at);
            if (room < std::min(left_, leastBody)) {
                plan_.pages.push_back(page);
                page = {};
                at = plan_.margin;
            }
        }
        fill(page, at);
        while (left_ > enough && plan_.pages.size() < mostPages) {
            PlannedPage next;
            next.repeated = pageOverlap;
            done_ -= pageOverlap;
            left_ += pageOverlap;
            fill(next, plan_.margin);
        }
        plan_.cut = left_ > enough;
        return std::move(plan_);
    }

  private:
    [[nodiscard]] double wholeHeight() const {
        const double heading = request_.headingHeight > 0 ? request_.headingHeight + gap : 0;
        const double all = 2 * plan_.margin + heading + 2 * request_.headHeight + left_ + footerHeight;
        return std::min(all, longestPage);
    }
    [[nodiscard]] double bodyRoom(double headTop) const {
        return plan_.height - plan_.margin - footerHeight - headTop - request_.headHeight;
    }
    void fill(PlannedPage& page, double headTop) {
        page.headTop = headTop;
        page.bodyTop = headTop + request_.headHeight;
        const double room = bodyRoom(headTop);
        plan_.noRoom |= room < std::min(left_, pageOverlap * 2);
        page.bodyHeight = std::max(pageOverlap * 2, room);
        page.top = request_.from + done_ * request_.perMillimetre;
        if (left_ <= page.bodyHeight + enough) {
            const double below = page.bodyHeight - left_;
            page.bodyHeight = left_;
            if (below + enough >= request_.headHeight) page.tailTop = page.bodyTop + page.bodyHeight;
        }
        done_ += page.bodyHeight;
        left_ -= page.bodyHeight;
        plan_.pages.push_back(page);
    }

    const PageRequest& request_;
    double left_;     // mm of log still to be placed
    double done_ = 0; // mm of log placed
    PagePlan plan_;
};

} // namespace

std::optional<Paper> paperNamed(std::string_view name) {
    const auto found = std::ranges::find(papers, name, &NamedPaper::name);
    if (found == papers.end()) return std::nullopt;
    return found->paper;
}

PagePlan planPages(const PageRequest& request) {
    return Planner(request).plan();
}

} // namespace tarvik
