#include "files/las_data.h"

#include "files/las_row.h"
#include "files/las_row_repair.h"
#include "files/las_wrapped_rows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvik {

namespace {

constexpr double nullTolerance = 1e-4;
constexpr std::size_t firstSteps = 2000; ///< room that is made at first; doubled whenever it is full

class LasDataLoader {
  public:
    LasDataLoader(const LasHeader& header, bool tolerant, ReviewLog& review, LasFindings& findings)
        : header_(header),
          tolerant_(tolerant),
          review_(review),
          findings_(findings),
          columns_(header.facts.curvesInFile),
          loaded_(std::min(columns_, lasColumns)),
          repair_(header.facts.nullText),
          wrapped_(columns_, header.facts, findings) {
        describeChannels();
    }

    void load(LasLines& lines, const Progress& progress) {
        if (tolerant_ && header_.wrapped)
            wrapped_.learn(lines);
        else if (tolerant_)
            repair_.learnCommas(lines, columns_);
        LasLine line;
        int told = -1;
        while (lines.next(line)) {
            const int percent = static_cast<int>(lines.position() * 100 / lines.fileSize());
            if (progress && percent != told) progress(percent, "Loading data values from file");
            told = percent;
            takeLine(line);
        }
        takeLastWrapped();
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

    void takeLine(const LasLine& line) {
        const std::size_t first = line.text.find_first_not_of(" \t");
        if (line.tooLong) {
            findings_.add(LasOddity::longLine, line.number);
            ++review_.las->droppedRows;
        } else if (first == std::string_view::npos) {
            return;
        } else if (behindData_ || line.text[first] == '~') {
            behindData_ = true;
            findings_.add(LasOddity::afterData, line.number);
        } else if (line.text[first] == '#') {
            findings_.add(LasOddity::comment, line.number);
        } else if (stored_ == maxReviewSteps) {
            review_.truncated = true;
            findings_.add(LasOddity::beyondLimit, line.number);
        } else if (tolerant_ && header_.wrapped) {
            takeWrapped(line);
        } else {
            takeRow(line);
        }
    }

    void takeWrapped(const LasLine& line) {
        const auto row = wrapped_.add(line);
        review_.las->droppedRows += wrapped_.takeDropped();
        if (row) store(*row, wrapped_.firstLine());
        if (!line.ended) findings_.add(LasOddity::uncertainEnd, line.number);
    }

    void takeLastWrapped() {
        if (const auto row = wrapped_.finish()) store(*row, wrapped_.firstLine());
        if (wrapped_.inRow()) dropFragment(wrapped_.beginLine(), 0);
    }

    void takeRow(const LasLine& line) {
        splitLasRow(line.text, row_);
        const bool odd = row_.tokens != columns_ || row_.firstBad != LasRow::none;
        if (odd && tolerant_) repair_.mend(line, columns_, row_, findings_);
        if (!line.ended && row_.tokens < columns_) return dropFragment(line.number, line.text.size());
        if (!line.ended && line.text.size() < lengthBefore_)
            findings_.add(LasOddity::uncertainEnd, line.number);
        lengthBefore_ = line.text.size();
        if (row_.tokens > columns_) findings_.add(LasOddity::manyColumns, line.number);
        if (row_.tokens < columns_) findings_.add(LasOddity::fewColumns, line.number);
        store(row_, line.number);
    }

    void dropFragment(std::size_t line, std::size_t bytes) {
        findings_.add(LasOddity::fragment, line);
        review_.las->fragmentBytes = bytes;
    }

    void store(const LasRow& row, std::size_t line) {
        if (std::isnan(row.values[0])) {
            findings_.add(LasOddity::noDepth, line);
            ++review_.las->droppedRows;
            return;
        }
        if (stored_ == review_.depth.size()) grow();
        checkDepth(row.values[0], line);
        review_.depth[stored_] = row.values[0];
        // Where the columns do not add up, nobody knows which one a value behind an odd token belongs to.
        const std::size_t sure = row.tokens == columns_ ? loaded_ : std::min(row.firstBad, row.tokens);
        bool noNumber = row.firstBad < loaded_;
        for (std::size_t i = 1; i < loaded_; ++i) {
            const float value = i < sure ? valueOf(row.values[i], noNumber) : noValue();
            review_.channels[i - 1].values[stored_] = value;
        }
        if (noNumber) findings_.add(LasOddity::noNumber, line);
        review_.las->decimals = std::max(review_.las->decimals, row.decimals);
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
    LasWrappedRows wrapped_;
    std::size_t stored_ = 0;
    std::size_t lengthBefore_ = 0;
    bool behindData_ = false;
};

} // namespace

void loadLasData(LasLines& lines, const LasHeader& header, bool tolerant, ReviewLog& review,
                 LasFindings& findings, const Progress& progress) {
    LasDataLoader(header, tolerant, review, findings).load(lines, progress);
}

} // namespace tarvik
