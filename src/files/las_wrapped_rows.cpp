#include "files/las_wrapped_rows.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr std::size_t linesAhead = 400;
constexpr std::size_t mostStarts = 100; // lines at which a first whole row is looked for

/// The layout of a row that begins with the first of `counts`; empty when it does not add up.
std::span<const std::size_t> rowFrom(std::span<const std::size_t> counts, std::size_t columns) {
    std::size_t values = 0;
    for (std::size_t i = 0; i < counts.size() && values < columns; ++i) {
        values += counts[i];
        if (values == columns) return counts.first(i + 1);
    }
    return {};
}

std::size_t rowsThatFit(std::span<const std::size_t> counts, std::span<const std::size_t> layout) {
    std::size_t rows = 0;
    while (counts.size() >= layout.size()) {
        const bool fits = std::ranges::equal(counts.first(layout.size()), layout);
        rows += fits ? 1 : 0;
        counts = counts.subspan(fits ? layout.size() : 1);
    }
    return rows;
}

} // namespace

std::vector<std::size_t> wrapLayout(std::span<const std::size_t> counts, std::size_t columns) {
    std::span<const std::size_t> best;
    std::pair<std::size_t, bool> bestFit{0, false};
    for (std::size_t start = 0; start < std::min(counts.size(), mostStarts); ++start) {
        const auto layout = rowFrom(counts.subspan(start), columns);
        if (layout.empty()) continue;
        const std::pair fit{rowsThatFit(counts, layout), layout.front() == 1};
        if (fit > bestFit) {
            best = layout;
            bestFit = fit;
        }
    }
    return {best.begin(), best.end()};
}

void LasWrappedRows::learn(LasLines lines) {
    std::vector<std::size_t> counts;
    LasLine line;
    while (counts.size() < linesAhead && lines.next(line)) {
        splitLasRow(line.text, lineRow_);
        if (lineRow_.tokens == 0 || line.text.find_first_of("#~") == line.text.find_first_not_of(" \t"))
            continue;
        counts.push_back(lineRow_.tokens);
    }
    layout_ = wrapLayout(counts, columns_);
    if (layout_.empty()) findings_.say(0, "no row of the first lines has as many values as there are curves");
    if (eachAlone() && !(std::abs(step_) > 0))
        findings_.say(
            0, "each value has a line of its own and there is no STEP: a lost line would go unnoticed");
}

const LasRow* LasWrappedRows::add(const LasLine& line) {
    splitLasRow(line.text, lineRow_);
    if (inRow() && lineRow_.tokens != layout_[lineInRow_])
        repair_.mend(line, layout_[lineInRow_], lineRow_, findings_);
    if (inRow() && lineRow_.tokens != layout_[lineInRow_]) dropRow();
    const LasRow* whole = nullptr;
    if (!inRow()) {
        if (!beginsRow()) {
            if (std::exchange(held_, false)) ++dropped_;
            passOver(line.number);
            return nullptr;
        }
        whole = complete();
        passingOver_ = false;
        beginLine_ = line.number;
        row_.clear();
    }
    ++lineInRow_;
    row_.append(lineRow_);
    if (row_.tokens < columns_) return whole;
    lineInRow_ = 0;
    depthBefore_ = row_.values[0];
    depthKnown_ = !std::isnan(depthBefore_);
    whole_ = row_;
    held_ = true;
    const bool sure = layout_.size() == 1 || layout_.back() != layout_.front();
    return sure ? finish() : whole;
}

const LasRow* LasWrappedRows::finish() {
    return complete();
}

/// Where a row's last line looks like its first, only the line behind tells that none was lost.
const LasRow* LasWrappedRows::complete() {
    if (!std::exchange(held_, false)) return nullptr;
    firstLine_ = beginLine_;
    return &whole_;
}

/// With one value on every line only the depth itself shows where a row begins: it goes on by the step, or by
/// as many as have been passed over.
bool LasWrappedRows::beginsRow() const {
    if (layout_.empty() || lineRow_.tokens != layout_.front()) return false;
    if (!eachAlone() || !depthKnown_ || !(std::abs(step_) > 0)) return true;
    const auto most = passingOver_ ? static_cast<double>(2 + passed_ / columns_) : 1.0;
    const double steps = (lineRow_.values[0] - depthBefore_) / step_;
    return steps > 0.5 && steps < most + 0.5 && std::abs(steps - std::round(steps)) < 0.25;
}

bool LasWrappedRows::eachAlone() const {
    return layout_.size() > 1 && std::ranges::all_of(layout_, [](std::size_t count) { return count == 1; });
}

void LasWrappedRows::passOver(std::size_t line) {
    findings_.add(LasOddity::damagedWrap, line);
    passed_ = passingOver_ ? passed_ + 1 : 1;
    if (!std::exchange(passingOver_, true)) ++dropped_;
}

void LasWrappedRows::dropRow() {
    findings_.add(LasOddity::damagedWrap, beginLine_);
    ++dropped_;
    passingOver_ = true;
    lineInRow_ = 0;
}

} // namespace tarvik
