// The points of a calibration from standard input, and its coefficients as text.
#pragma once

#include "equipment/polynomial_fit.h"

#include <istream>
#include <string>
#include <vector>

namespace tarvik {

/// One "x y" per line; blank lines and lines that begin with "#" are passed over. Throws a Failure that names
/// the line.
[[nodiscard]] std::vector<FitPoint> readPoints(std::istream& in);

/// 17 digits: every coefficient reads back as it is.
[[nodiscard]] std::string exactNumber(double value);

} // namespace tarvik
