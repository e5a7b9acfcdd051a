// One line of LAS data taken apart: tokens between blanks and tabs, the first of them as numbers.
//
// The quick path of the LAS reader: nothing is allocated, and most numbers are read without a general parser.
#pragma once

#include "base/limits.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvik {

/// The index and the channels behind it.
constexpr std::size_t lasColumns = maxChannels + 1;

struct LasRow {
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    std::size_t tokens = 0;                  ///< all of the line
    std::size_t firstBad = none;             ///< the first loaded token that is no finite number
    std::size_t bad = 0;                     ///< how many of them are none
    std::array<double, lasColumns> values{}; ///< not a number where the token is none; valid below `tokens`
    std::array<int, lasColumns> decimals{};  ///< as each is written; valid where its value is

    void clear();
    /// A wrapped row's next line.
    void append(const LasRow& line);
};

/// The row of one line.
void splitLasRow(std::string_view line, LasRow& row);

} // namespace tarvik
