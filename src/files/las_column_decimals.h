// How many decimals the numbers of each column have in a LAS file, learned from rows that add up: by them
// numbers that have run together are told apart.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvik {

class LasColumnDecimals {
  public:
    /// `nullText` as the header has it: it may stand in any column, whatever its decimals.
    explicit LasColumnDecimals(std::string nullText) : nullText_(std::move(nullText)) {}

    /// A row that has as many tokens as there are columns.
    void learn(std::string_view row, std::size_t columns);

    /// Whether a piece between two signs is a whole number of this column: the null value, or one with all
    /// the decimals, at least one, that the column has everywhere.
    [[nodiscard]] bool fit(std::string_view piece, std::size_t column) const;

    /// The first token of a row with too few that has other decimals than its column has everywhere: numbers
    /// have run together there. npos: none.
    [[nodiscard]] std::size_t firstMisfit(std::string_view row) const;

  private:
    /// Calls `use` with each token and its column, until it says false.
    template <class Use>
    static void forEachToken(std::string_view row, Use&& use);
    [[nodiscard]] bool isNull(std::string_view token) const;

    static constexpr int unknown = -1;
    static constexpr int various = -2;

    std::string nullText_;
    std::vector<int> decimals_; ///< of each column
};

} // namespace tarvik
