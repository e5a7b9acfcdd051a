// Channels at regular depths, linear between the two nearest loaded steps.
#pragma once

#include "base/review_log.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tarvik {

/// start, start + step, start + 2 step ... in the unit of the log.
struct DepthSteps {
    double start = 0;
    double step = 1;
    std::size_t count = 0;

    [[nodiscard]] double at(std::size_t index) const { return start + static_cast<double>(index) * step; }
};

/// Depths closer than this are the same: far below the thousandths that files hold.
constexpr double sameDepth = 1e-6;

/// Looks up once where the regular depths lie among the loaded ones; then every channel is a plain pass.
class LogInterpolation {
  public:
    /// Loaded depths need not be in order. Neighbours further apart than `limit` have nothing between them; 0
    /// is no limit.
    LogInterpolation(std::span<const double> loaded, const DepthSteps& steps, double limit = 0);

    /// The channel's values, one for each loaded depth, at the regular depths. A depth outside the loaded
    /// ones, in a stretch that was not logged, or with a gap on either side, is a gap; a depth that was
    /// loaded has its own value.
    [[nodiscard]] std::vector<float> Logprintexport_interplogdata(std::span<const float> values) const;

    /// The stretches wider than the limit in which regular depths lie.
    [[nodiscard]] const std::vector<DepthExtent>& notLogged() const { return notLogged_; }

  private:
    /// Between two loaded steps, `share` of the way from the first to the second.
    struct Place {
        std::size_t below;
        std::size_t above;
        double share;
    };

    std::vector<Place> places_;
    std::vector<DepthExtent> notLogged_;
};

} // namespace tarvik
