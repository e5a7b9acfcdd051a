#include "files/las_data.h"

#include "files/las_data_lines.h"
#include "files/las_row.h"
#include "files/las_row_repair.h"
#include "files/las_wrapped_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace tarvik {

namespace {

constexpr double nullTolerance = 1e-4;
constexpr std::size_t firstSteps = 2000; ///< room that is made at first; doubled whenever it is full
constexpr int learnRows = 200;           ///< looked at beforehand for what can be mended
constexpr std::uint64_t learnBytes = std::uint64_t{1} << 23; ///< and how far at most

/// Lines looked at for how rows are wrapped: a few rows even with each value on a line of its own.
std::size_t learnLines(std::size_t columns) {
    return std::clamp<std::size_t>(4 * columns, 400, 4000);
}

std::vector<LasWrapLine> firstLines(LasLines ahead, std::size_t columns) {
    LasFindings unsaid;
    LasDataLines lines(ahead, unsaid, {});
    std::vector<LasWrapLine> first;
    for (LasLine line; first.size() < learnLines(columns) && lines.next(line);) {
        first.push_back(wrapLineOf(line.text));
    }
    return first;
}

/// The review keeps singles. What shows is more than half of the last decimal, of the five that an export
/// writes at most; an export rounds up to half of it itself.
bool losesDigits(double read, float kept, int decimals) {
    constexpr std::array<double, 6> shows{0.51, 0.51e-1, 0.51e-2, 0.51e-3, 0.51e-4, 0.51e-5};
    const auto most = static_cast<std::size_t>(std::min(decimals, 5));
    return std::abs(read - static_cast<double>(kept)) > shows[most];
}

std::size_t lastTokenLength(std::string_view text) {
    const auto end = text.find_last_not_of(" \t") + 1;
    return end - (text.substr(0, end).find_last_of(" \t") + 1);
}

class LasDataLoader {
  public:
    LasDataLoader(const LasHeader& header, bool tolerant, ReviewLog& review, LasFindings& findings)
        : header_(header),
          tolerant_(tolerant),
          review_(review),
          findings_(findings),
          columns_(header.facts.curvesInFile),
          loaded_(std::min(columns_, lasColumns)),
          repair_(columns_, header.facts.nullText) {
        describeChannels();
    }

    void load(LasLines& lines, const Progress& progress) {
        std::optional<LasWrapForm> form;
        if (tolerant_ && (header_.wrapped || unsaidWrap(lines))) form = learnForm(lines.ahead(learnBytes));
        if (tolerant_) learnRepairs(lines.ahead(learnBytes), form);
        withRows(lines, form, findings_, progress, [this](auto& rows) {
            for (LasLine line; rows.next(line);) takeRow(line);
            review_.las->droppedRows += rows.takeDropped();
        });
        finish();
    }

  private:
    void describeChannels() {
        for (std::size_t i = 1; i < loaded_; ++i) {
            RunChannel named = header_.names[i];
            clearOfMarks(named);
            ReviewChannel channel{.name = named.name, .unit = named.unit, .calibrated = true, .values = {}};
            for (const auto& [filtered, points] : header_.filters) {
                if (filtered == named.name) channel.filteredOver = points;
            }
            review_.channels.push_back(std::move(channel));
            review_.header.channels.push_back(std::move(named));
        }
        if (columns_ > loaded_) {
            findings_.say(header_.indexLine, "the first " + std::to_string(maxChannels) + " channels of " +
                                                 std::to_string(columns_ - 1) +
                                                 " are loaded, the review has room for no more");
        }
    }

    /// Written again, a curve line that begins so would be a comment or a section.
    void clearOfMarks(RunChannel& named) {
        const std::size_t clear = std::min(named.name.find_first_not_of("#~ "), named.name.size());
        if (clear == 0) return;
        const std::string before = std::exchange(named.name, named.name.substr(clear));
        findings_.say(0, "the channel \"" + before + "\" is called \"" + named.name +
                             "\" here: a curve cannot begin with # or ~");
    }

    /// Hands `use` the rows, one line each, wrapped or not.
    template <class Use>
    void withRows(LasLines& lines, const std::optional<LasWrapForm>& form, LasFindings& findings,
                  const Progress& progress, Use&& use) {
        LasDataLines dataLines(lines, findings, progress);
        if (!form) return use(dataLines);
        LasWrappedRows rows(dataLines, *form, columns_, findings);
        use(rows);
    }

    bool unsaidWrap(const LasLines& lines) {
        if (!rowsLookWrapped(lines, header_)) return false;
        findings_.say(0,
                      "WRAP is not YES, but no line has all values of a row: the rows are read as wrapped");
        return true;
    }

    LasWrapForm learnForm(LasLines ahead) {
        const std::vector<LasWrapLine> first = firstLines(ahead, columns_);
        LasWrapForm form = learnWrapForm(first, columns_, {header_.facts.start, header_.facts.step});
        if (form.rows == 0)
            findings_.say(0, "no row of the first lines has as many values as there are curves");
        if (form.guess)
            findings_.say(
                0, "the first row is damaged, and a curve goes on as the depths do: nothing shows which "
                   "of the two is the depth");
        if (form.repeats() && form.step == 0)
            findings_.say(0,
                          "the lines of a row are alike and there is no STEP by which the depths go: a lost "
                          "line would go unnoticed");
        if (form.step * header_.facts.step < 0)
            findings_.say(0, "the depths go by STEP the other way round, its sign is wrong");
        return form;
    }

    void learnRepairs(LasLines ahead, const std::optional<LasWrapForm>& form) {
        LasFindings unsaid;
        withRows(ahead, form, unsaid, {}, [this](auto& rows) {
            LasLine line;
            for (int i = 0; i < learnRows && rows.next(line); ++i) repair_.learn(line);
        });
        repair_.settle(findings_);
    }

    void takeRow(const LasLine& line) {
        if (stored_ == maxReviewSteps) {
            review_.truncated = true;
            return findings_.add(LasOddity::beyondLimit, line.number);
        }
        splitLasRow(line.text, row_);
        const bool odd = row_.tokens != columns_ || row_.firstBad != LasRow::none;
        const bool readable = !odd || !tolerant_ || repair_.mend(line, row_, findings_);
        if (!line.ended && row_.tokens < columns_) return dropFragment(line.number, line.text.size());
        if (!readable) return dropRow(LasOddity::commaRow, line.number);
        // A depth of one more digit makes up for what the last value lost: the value is measured, too.
        const std::size_t last = lastTokenLength(line.text);
        if (!line.ended && (line.text.size() < lengthBefore_ || last < lastBefore_))
            findings_.add(LasOddity::uncertainEnd, line.number);
        lengthBefore_ = line.text.size();
        lastBefore_ = last;
        if (row_.tokens > columns_) findings_.add(LasOddity::manyColumns, line.number);
        if (row_.tokens < columns_) findings_.add(LasOddity::fewColumns, line.number);
        store(row_, line.number);
    }

    void dropRow(LasOddity why, std::size_t line) {
        findings_.add(why, line);
        ++review_.las->droppedRows;
    }

    void dropFragment(std::size_t line, std::size_t bytes) {
        findings_.add(LasOddity::fragment, line);
        review_.las->fragmentBytes = bytes;
    }

    void store(const LasRow& row, std::size_t line) {
        if (std::isnan(row.values[0])) return dropRow(LasOddity::noDepth, line);
        if (stored_ == review_.depth.size()) grow();
        checkDepth(row.values[0], line);
        review_.depth[stored_] = row.values[0];
        // Where the columns do not add up, nobody knows which one a value behind an odd token belongs to.
        const std::size_t sure = row.tokens == columns_ ? loaded_ : std::min(row.firstBad, row.tokens);
        bool noNumber = row.firstBad < loaded_;
        bool rounded = false;
        for (std::size_t i = 1; i < loaded_; ++i) {
            const float value = i < sure ? valueOf(row.values[i], noNumber) : noValue();
            review_.channels[i - 1].values[stored_] = value;
            // The null text may have decimals of its own.
            if (std::isnan(value)) continue;
            review_.las->decimals = std::max(review_.las->decimals, row.decimals[i]);
            rounded = rounded || losesDigits(row.values[i], value, row.decimals[i]);
        }
        if (noNumber) findings_.add(LasOddity::noNumber, line);
        if (rounded) findings_.add(LasOddity::rounded, line);
        ++stored_;
    }

    /// A number beyond the range of a single is none that can be shown.
    [[nodiscard]] float valueOf(double value, bool& noNumber) const {
        if (header_.facts.hasNull && std::abs(value - header_.facts.null) <= nullTolerance) return noValue();
        if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
            noNumber = true;
            return noValue();
        }
        return static_cast<float>(value);
    }

    void checkDepth(double depth, std::size_t line) {
        if (header_.facts.hasNull && std::abs(depth - header_.facts.null) <= nullTolerance)
            findings_.add(LasOddity::nullDepth, line);
        if (stored_ == 0) return;
        const double before = review_.depth[stored_ - 1];
        if (depth > before)
            findings_.add(LasOddity::forwards, line);
        else
            findings_.add(depth < before ? LasOddity::backwards : LasOddity::repeated, line);
    }

    template <class Do>
    void forEachColumn(Do&& each) {
        each(review_.depth);
        for (ReviewChannel& channel : review_.channels) each(channel.values);
    }

    void grow() {
        const std::size_t size = std::clamp(stored_ * 2, firstSteps, maxReviewSteps);
        forEachColumn([size](auto& column) { column.resize(size); });
    }

    /// The way that most rows go is the way of the file; the others are told as going back.
    void finish() {
        forEachColumn([this](auto& column) { column.resize(stored_); });
        const bool falls = findings_.count(LasOddity::backwards) > findings_.count(LasOddity::forwards);
        findings_.forget(falls ? LasOddity::backwards : LasOddity::forwards);
        if (!falls) return;
        forEachColumn([](auto& column) { std::ranges::reverse(column); });
        review_.reversed = true;
        findings_.say(0, "the depths decrease, the rows were turned round");
    }

    const LasHeader& header_;
    bool tolerant_;
    ReviewLog& review_;
    LasFindings& findings_;
    std::size_t columns_; ///< of the file, the index among them
    std::size_t loaded_;  ///< the first of them
    LasRow row_;
    LasRowRepair repair_;
    std::size_t stored_ = 0;
    std::size_t lengthBefore_ = 0;
    std::size_t lastBefore_ = 0; ///< characters of the last value of the row before
};

} // namespace

bool rowsLookWrapped(const LasLines& lines, const LasHeader& header) {
    const std::size_t columns = header.facts.curvesInFile;
    return !header.wrapped && looksWrapped(firstLines(lines.ahead(learnBytes), columns), columns);
}

void loadLasData(LasLines& lines, const LasHeader& header, bool tolerant, ReviewLog& review,
                 LasFindings& findings, const Progress& progress) {
    LasDataLoader(header, tolerant, review, findings).load(lines, progress);
}

} // namespace tarvik
