// Least-squares polynomials through calibration points, up to order 20.
//
// The power sums stop at 22 terms, so that orders up to 10 are exact fits and higher ones take zero for the
// sums that are missing. The sums are formed from single-precision copies of the points. Both are kept: a
// calibration fitted today agrees with one fitted years ago.
#pragma once

#include "app/error_trap.h"

#include <array>
#include <span>
#include <string>

namespace tarvik {

constexpr int maxFitOrder = 20;
constexpr int fitTerms = 22; ///< power sums of a fit, and rows of the largest matrix

struct FitPoint {
    double x = 0; ///< the reading
    double y = 0; ///< the reference value
};

struct PolynomialFit {
    bool ok = false;
    std::string message; ///< "OK", or why there is no polynomial; empty when an error was reported
    /// Lowest power first; order + 1 of them count. Not to be used unless ok.
    std::array<double, fitTerms> coefficients{};
};

/// Fails on equal readings, on orders outside 1 to 20, on fewer than 3 points (but two make a straight line)
/// and on a matrix with a zero pivot. A number that overflows or is none goes to the error log.
[[nodiscard]] PolynomialFit PolyCalibration_getpolycoefficients(ErrorTrap& errors, int order,
                                                                std::span<const FitPoint> points);

using FitMatrix = std::array<std::array<double, fitTerms>, fitTerms>;

struct MatrixInversion {
    bool ok = false;
    std::string message; ///< "Matrix inversion OK!" or "Matrix Inversion Error"
};

/// Inverts the upper left size x size (1 to 22) of the matrix in place, by full elimination with partial
/// pivoting by rows. After a failure the matrix is of no use.
[[nodiscard]] MatrixInversion PolyCalibration_invdet(ErrorTrap& errors, FitMatrix& matrix, int size);

} // namespace tarvik
