#include "equipment/polynomial_fit.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <vector>

namespace tarvik {

namespace {

using Permutation = std::array<std::int16_t, fitTerms>;

/// A point as the sums see it.
struct SinglePoint {
    float x;
    float y;
};

/// S[k] is the sum of x^k, T[k] of x^k times y; k counts from 0.
struct PowerSums {
    std::array<double, fitTerms> s{};
    std::array<double, fitTerms> t{};
};

[[noreturn]] void refuseNumber() {
    throw Failure(ErrorNumber::overflow,
                  "Overflow: the calibration points are too large or are no numbers; check the readings");
}

double finite(double value) {
    if (!std::isfinite(value)) refuseNumber();
    return value;
}

float single(double value) {
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) refuseNumber();
    return static_cast<float>(value);
}

void exchangeReals(double& a, double& b) {
    const double kept = a;
    a = b;
    b = kept;
}

void exchangeIntegers(std::int16_t& a, std::int16_t& b) {
    const std::int16_t kept = a;
    a = b;
    b = kept;
}

bool readingsDiffer(std::span<const FitPoint> points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (std::size_t j = i + 1; j < points.size(); ++j) {
            if (points[i].x == points[j].x) return false;
        }
    }
    return true;
}

void lineThrough(const FitPoint& first, const FitPoint& second, PolynomialFit& fit) {
    const double slope = finite((second.y - first.y) / (second.x - first.x));
    fit.coefficients[0] = finite(second.y - slope * second.x);
    fit.coefficients[1] = slope;
}

std::vector<SinglePoint> singleCopies(std::span<const FitPoint> points) {
    std::vector<SinglePoint> copies;
    copies.reserve(points.size());
    for (const FitPoint& point : points) {
        copies.push_back({single(point.x), single(point.y)});
    }
    return copies;
}

/// Always all the terms, whatever the order: a reading whose 21st power overflows is refused at every order.
PowerSums powerSums(const std::vector<SinglePoint>& points) {
    PowerSums sums;
    for (const SinglePoint& point : points) {
        for (std::size_t k = 0; k < sums.s.size(); ++k) {
            const double power = std::pow(static_cast<double>(point.x), static_cast<double>(k));
            sums.s[k] = finite(sums.s[k] + power);
            sums.t[k] = finite(sums.t[k] + power * static_cast<double>(point.y));
        }
    }
    return sums;
}

/// Entries whose power sum lies beyond the 22 terms are zero.
FitMatrix normalMatrix(const PowerSums& sums, std::size_t size) {
    FitMatrix matrix{};
    for (std::size_t i = 0; i < size; ++i) {
        for (std::size_t j = i; j < size; ++j) {
            matrix[i][j] = matrix[j][i] = i + j < sums.s.size() ? sums.s[i + j] : 0.0;
        }
    }
    return matrix;
}

/// The row at or below k with the largest entry in column k; of equals the first.
std::size_t pivotRow(const FitMatrix& a, std::size_t k, std::size_t size) {
    std::size_t pivot = k;
    for (std::size_t row = k + 1; row < size; ++row) {
        if (std::abs(a[row][k]) > std::abs(a[pivot][k])) pivot = row;
    }
    return pivot;
}

void exchangeRows(FitMatrix& a, std::size_t first, std::size_t second, std::size_t size) {
    for (std::size_t j = 0; j < size; ++j) exchangeReals(a[first][j], a[second][j]);
}

/// Makes column k a column of the identity, and what the elimination leaves there a column of the inverse.
/// False when the pivot is exactly zero.
bool eliminate(FitMatrix& a, std::size_t k, std::size_t size) {
    const double pivot = a[k][k];
    a[k][k] = 1.0;
    if (pivot == 0.0) return false;
    for (std::size_t j = 0; j < size; ++j) a[k][j] = finite(a[k][j] / pivot);
    for (std::size_t i = 0; i < size; ++i) {
        const double factor = a[i][k];
        if (i == k || factor == 0.0) continue;
        a[i][k] = 0;
        for (std::size_t j = 0; j < size; ++j) a[i][j] = finite(a[i][j] - factor * a[k][j]);
    }
    return true;
}

/// Each row exchanged on the way is a column out of place in the inverse.
void restoreColumns(FitMatrix& a, Permutation& order, std::size_t size) {
    for (std::size_t place = 0; place < size; ++place) {
        std::size_t found = place;
        while (order[found] != static_cast<std::int16_t>(place + 1)) ++found;
        if (found == place) continue;
        for (std::size_t i = 0; i < size; ++i) exchangeReals(a[i][place], a[i][found]);
        exchangeIntegers(order[place], order[found]);
    }
}

bool invert(FitMatrix& a, std::size_t size) {
    Permutation order{};
    std::iota(order.begin(), order.end(), std::int16_t{1});
    for (std::size_t k = 0; k < size; ++k) {
        const std::size_t pivot = pivotRow(a, k, size);
        if (pivot != k) {
            exchangeRows(a, k, pivot, size);
            exchangeIntegers(order[k], order[pivot]);
        }
        if (!eliminate(a, k, size)) return false;
    }
    restoreColumns(a, order, size);
    return true;
}

void multiply(const FitMatrix& inverse, const PowerSums& sums, std::size_t size, PolynomialFit& fit) {
    for (std::size_t i = 0; i < size; ++i) {
        double sum = 0;
        for (std::size_t j = 0; j < size; ++j) sum += inverse[i][j] * sums.t[j];
        fit.coefficients[i] = finite(sum);
    }
}

} // namespace

MatrixInversion PolyCalibration_invdet(ErrorTrap& errors, FitMatrix& matrix, int size) {
    return errors.run("PolyCalibration_invdet", MatrixInversion{}, [&](Level&) -> MatrixInversion {
        if (size < 1 || size > fitTerms) {
            throw Failure(ErrorNumber::subscriptOutOfRange,
                          "A matrix of " + std::to_string(size) + " rows; from 1 to 22 can be inverted");
        }
        if (!invert(matrix, static_cast<std::size_t>(size))) return {false, "Matrix Inversion Error"};
        return {true, "Matrix inversion OK!"};
    });
}

PolynomialFit PolyCalibration_getpolycoefficients(ErrorTrap& errors, int order,
                                                  std::span<const FitPoint> points) {
    return errors.run("PolyCalibration_getpolycoefficients", PolynomialFit{}, [&](Level& level) {
        PolynomialFit fit;
        const auto refused = [&fit](std::string why) {
            fit.message = std::move(why);
            return fit;
        };
        if (!readingsDiffer(points))
            return refused("Curve Fit Error: Non-unique sensor calibration points. ");

        if (order == 1 && points.size() == 2) {
            lineThrough(points[0], points[1], fit);
        } else {
            if (order < 1 || order > maxFitOrder || points.size() < 3)
                return refused(" ERROR: Invalid polynomial order.");
            level = 1; // the sums
            const auto size = static_cast<std::size_t>(order) + 1;
            const PowerSums sums = powerSums(singleCopies(points));
            FitMatrix matrix = normalMatrix(sums, size);
            level = 2; // the inverse
            const MatrixInversion inversion = PolyCalibration_invdet(errors, matrix, order + 1);
            if (!inversion.ok) return refused(inversion.message);
            level = 3; // the coefficients
            multiply(matrix, sums, size, fit);
        }
        fit.ok = true;
        fit.message = "OK";
        return fit;
    });
}

} // namespace tarvik
