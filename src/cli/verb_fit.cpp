// tarvik fit: a calibration polynomial through points from standard input.
#include "app/error_trap.h"
#include "base/text.h"
#include "cli/calibration_points.h"
#include "cli/verb.h"

#include <iostream>

namespace tarvik {

namespace {

/// No program is started for a fit: an error goes straight to the terminal.
class TerminalReporter final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { std::cerr << "tarvik: " << error.description << "\n"; }
};

int runFit(const Arguments& arguments) {
    if (!arguments.rest().empty())
        throw UsageError("points are read from standard input, not from a file name");
    const auto order = arguments.whole("--order");
    if (!order) throw UsageError("--order is missing");
    TerminalReporter reporter;
    ErrorTrap errors(reporter);
    const auto points = readPoints(std::cin);
    const PolynomialFit fit = PolyCalibration_getpolycoefficients(errors, *order, points);
    if (!fit.ok) {
        if (!fit.message.empty()) std::cerr << "tarvik: " << trimmed(fit.message) << "\n";
        return exitFailed;
    }
    for (int k = 0; k <= *order; ++k) {
        std::cout << exactNumber(fit.coefficients[static_cast<std::size_t>(k)]) << "\n";
    }
    return exitDone;
}

} // namespace

Verb fitVerb() {
    return {.name = "fit",
            .usage = "fit --order M < points",
            .purpose =
                "fit a calibration polynomial through points; prints the coefficients, lowest power first\n"
                "Points come from standard input, one \"x y\" a line.",
            .options = {{"--order", "M", "order of the polynomial, 1 to 20"}},
            .run = runFit};
}

} // namespace tarvik
