// What a LAS reader met: dropped, converted or repaired, with the lines of the file.
//
// Counting allocates nothing, so that a file whose every row is odd is read as fast as any.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Things that can happen on many lines.
enum class LasOddity {
    noDepth,
    fewColumns,
    manyColumns,
    noNumber,
    rounded,
    fragment,
    uncertainEnd,
    comment,
    longLine,
    backwards,
    forwards,
    repeated,
    nullDepth,
    beyondLimit,
    afterData,
    dosEnd,
    curveNoDot,
    // Repairs of the tolerant reader.
    decimalComma,
    commaColumns,
    commaRow,
    runOn,
    exponentD,
    damagedWrap,
    headerNoColon,
    headerNoDot,
    headerLong,
    curvesAgain,
    headerTwice,
    lowerCase,
    headerTab,
    utf8Text,
    ansiText,
    count_
};

class LasFindings {
  public:
    /// Counted; the first few lines are kept.
    void add(LasOddity oddity, std::size_t line);
    void forget(LasOddity oddity) { seen_[static_cast<std::size_t>(oddity)] = {}; }
    [[nodiscard]] std::size_t count(LasOddity oddity) const {
        return seen_[static_cast<std::size_t>(oddity)].count;
    }
    /// Said once; line 0 is the file as a whole.
    void say(std::size_t line, std::string text);

    /// "NAME.las, line 12: what, why", in the order of the kinds, single ones first.
    [[nodiscard]] std::vector<std::string> texts(std::string_view fileName) const;

  private:
    static constexpr std::size_t keptLines = 5;

    struct Seen {
        std::size_t count = 0;
        std::array<std::size_t, keptLines> lines{};
        std::size_t last = 0;
    };
    struct Said {
        std::size_t line;
        std::string text;
    };

    std::array<Seen, static_cast<std::size_t>(LasOddity::count_)> seen_{};
    std::vector<Said> said_;
};

} // namespace tarvik
