// A run as the settings and the operator's limits order it.
#pragma once

#include "app/settings.h"
#include "base/failure.h"
#include "lcu/run_context.h"
#include "platform/places.h"

#include <optional>
#include <string>

namespace tarvik {

/// Metres; nothing where the operator gave none.
struct RunLimits {
    std::optional<double> top;
    std::optional<double> bottom;
    double endDistance = 0; ///< left at which the end counts as reached
};

enum class OrderPart { project, hole, interval, winch, limits };

/// "Still to be chosen: a hole and a winch."; empty when nothing is missing.
[[nodiscard]] std::string missingForRun(const Settings& settings, const CurrentTool& tool,
                                        const CurrentWinch& winch);

/// What stands in the way of a run, in words, and where it is to be put right.
class BadOrder : public Failure {
  public:
    BadOrder(OrderPart part, const std::string& words)
        : Failure(ErrorNumber::typeMismatch, words), part_(part) {}
    [[nodiscard]] OrderPart part() const { return part_; }

  private:
    OrderPart part_;
};

/// Throws BadOrder. One limit given leaves the other side open; none given puts no limit to the run.
[[nodiscard]] RunSetup runSetupFrom(const Settings& settings, const RunLimits& limits);
/// Throws BadOrder.
[[nodiscard]] RunOrder runOrderFrom(const Settings& settings, const Places& places, const RunLimits& limits);

} // namespace tarvik
