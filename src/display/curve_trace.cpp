#include "display/curve_trace.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace tarvik {

namespace {

constexpr double densePerRow = 2.5;
// In a window a line is begun anew at every so many steps, counted from the start of the log, so that the
// dashes of a part drawn later fall where those of the whole would.
constexpr std::size_t anchorSteps = 64;

bool runsUp(std::span<const double> axis) {
    return axis.size() < 2 || axis.front() <= axis.back();
}

/// First step at or beyond `position`, along an axis in order.
std::size_t stepAt(std::span<const double> axis, double position, bool ascending) {
    const auto found = ascending ? std::lower_bound(axis.begin(), axis.end(), position)
                                 : std::lower_bound(axis.begin(), axis.end(), position, std::greater<>());
    return static_cast<std::size_t>(found - axis.begin());
}

class Joiner {
  public:
    Joiner(const LogData& data, const DisplayView& view)
        : axis_(data.along(view.axis)),
          depth_(data.depth),
          limit_(data.joinLimit > 0 ? data.joinLimit / toMetres(1, data.units) : 0) {}

    /// Whether a line runs from step i to the next.
    [[nodiscard]] bool joins(std::size_t i) const {
        return limit_ <= 0 || std::abs(depth_[i + 1] - depth_[i]) <= limit_;
    }
    [[nodiscard]] double at(std::size_t i) const { return axis_[i]; }

  private:
    std::span<const double> axis_;
    std::span<const double> depth_;
    double limit_;
};

/// Lines: of the steps that share a row only the first, the smallest, the greatest and the last are kept.
class LineBuilder {
  public:
    LineBuilder(CurveTrace& trace, double rowHeight) : trace_(trace), rowHeight_(rowHeight) {}

    void add(const TracePoint& point) {
        const double row = std::floor(point.y / rowHeight_);
        if (held_ > 0 && row != row_) flush();
        row_ = row;
        if (held_ == 0) first_ = least_ = most_ = {point, 0};
        last_ = {point, held_++};
        if (point.fraction < least_.point.fraction) least_ = last_;
        if (point.fraction > most_.point.fraction) most_ = last_;
    }
    void cut() {
        if (repeated_ && !begun_ && held_ == 1) held_ = 0; // it stands at the end of the line before
        repeated_ = false;
        flush();
        begun_ = false;
    }
    /// Ends a line at a point that the next one, if there is one, will begin with.
    void anchor(const TracePoint& point) {
        if (!begun_ && held_ == 0) return;
        add(point);
        cut();
        repeated_ = true;
    }

  private:
    struct Held {
        TracePoint point;
        std::size_t order = 0;
    };
    void flush() {
        if (held_ == 0) return;
        if (!begun_) trace_.pieces.push_back(trace_.points.size());
        begun_ = true;
        Held kept[] = {first_, least_, most_, last_};
        if (kept[1].order > kept[2].order) std::swap(kept[1], kept[2]);
        for (std::size_t i = 0; i < 4; ++i) {
            if (i == 0 || kept[i].order != kept[i - 1].order) trace_.points.push_back(kept[i].point);
        }
        held_ = 0;
    }

    CurveTrace& trace_;
    double rowHeight_;
    double row_ = 0;
    Held first_, least_, most_, last_;
    std::size_t held_ = 0;
    bool begun_ = false;
    bool repeated_ = false;
};

/// The steps whose lines can be seen within the band, for a curve that has a value every `stride` steps.
std::pair<std::size_t, std::size_t> stepsOf(const RowIndex& index, std::size_t stride, std::size_t all) {
    if (stride == 1) return {index.first(), index.last()};
    return {index.first() - std::min(index.first(), anchorSteps), std::min(all, index.last() + stride)};
}

void traceLines(CurveTrace& trace, const LogData& data, const CurveSamples& samples, const ScaleMap& map,
                const DisplayView& view, const RowIndex& index) {
    const Joiner joiner(data, view);
    const double unit = data.unitOf(view.axis);
    const auto blockOf = [&](std::size_t i) { return (data.firstStep + i) / anchorSteps; };
    const auto [first, last] = stepsOf(index, samples.stride, data.steps());
    LineBuilder lines(trace, view.rowHeight);
    std::size_t missing = 0;
    std::size_t before = first; // the step of the value before this one
    for (std::size_t i = first; i < last; ++i) {
        const float value = samples.values[i];
        if (!isNoValue(value)) {
            const TracePoint point{map.fraction(value), view.yOf(joiner.at(i) * unit)};
            if (!view.paper && blockOf(i) != blockOf(before)) lines.anchor(point);
            lines.add(point);
            before = i;
            missing = 0;
        } else if (++missing >= samples.stride) {
            lines.cut();
        }
        if (i + 1 < last && !joiner.joins(i)) lines.cut();
    }
    lines.cut();
}

/// The values on either side of a border between two rows that a line joins across it.
struct Crosser {
    const LogData& data;
    const CurveSamples& samples;
    Joiner joiner;

    [[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>> across(std::size_t after) const {
        std::size_t one = after;
        while (one > 0 && after - one < samples.stride && isNoValue(samples.values[one - 1])) --one;
        std::size_t other = after;
        while (other < data.steps() && other - after < samples.stride && isNoValue(samples.values[other]))
            ++other;
        if (one == 0 || other >= data.steps() || other - --one > samples.stride) return std::nullopt;
        if (isNoValue(samples.values[one]) || isNoValue(samples.values[other])) return std::nullopt;
        for (std::size_t i = one; i < other; ++i) {
            if (!joiner.joins(i)) return std::nullopt;
        }
        return std::pair(one, other);
    }
};

struct Crossing {
    double fraction = 0;
    bool exists = false;
};

void traceRows(CurveTrace& trace, const LogData& data, const CurveSamples& samples, const ScaleMap& map,
               const DisplayView& view, const RowIndex& index) {
    const Crosser crosser{data, samples, Joiner(data, view)};
    const double unit = data.unitOf(view.axis);
    // Where the curve passes from one row to the next.
    const auto crossing = [&](std::size_t r) -> Crossing {
        const auto joined = crosser.across(index.border(r));
        if (!joined) return {};
        const auto [one, other] = *joined;
        const double y = static_cast<double>(index.firstRow() + static_cast<long>(r)) * view.rowHeight;
        const double position = view.positionAt(y) / unit;
        const double start = crosser.joiner.at(one);
        const double step = crosser.joiner.at(other) - start;
        const double part = step == 0 ? 0.5 : std::clamp((position - start) / step, 0.0, 1.0);
        const double from = map.fraction(samples.values[one]);
        return {from + (map.fraction(samples.values[other]) - from) * part, true};
    };
    Crossing above = crossing(0);
    for (std::size_t r = 0; r < index.rows(); ++r) {
        const Crossing below = crossing(r + 1);
        const std::size_t first = std::min(index.border(r), index.border(r + 1));
        const std::size_t last = std::max(index.border(r), index.border(r + 1));
        const ValueRange range = samples.range(first, last);
        RowSpan span{index.firstRow() + static_cast<long>(r), ScaleMap::furthest, -ScaleMap::furthest};
        const auto reach = [&span](double fraction) {
            span.from = std::min(span.from, fraction);
            span.to = std::max(span.to, fraction);
        };
        if (!range.empty()) {
            reach(map.fraction(range.least));
            reach(map.fraction(range.most));
        }
        if (above.exists) reach(above.fraction);
        if (below.exists) reach(below.fraction);
        if (span.from <= span.to) trace.rows.push_back(span);
        above = below;
    }
}

} // namespace

RowIndex::RowIndex(const LogData& data, const DisplayView& view, const Band& band) {
    const auto axis = data.along(view.axis);
    last_ = axis.size();
    if (axis.empty()) return;
    ascending_ = runsUp(axis);
    const bool inOrder = ascending_ ? std::is_sorted(axis.begin(), axis.end())
                                    : std::is_sorted(axis.begin(), axis.end(), std::greater<>());
    if (!inOrder) return;
    const double unit = data.unitOf(view.axis);
    // Half a millimetre more, for the width of the line itself.
    const double margin = view.millimetres(0.5);
    const double upper = view.positionAt(band.top - margin) / unit;
    const double lower = view.positionAt(band.bottom + margin) / unit;
    const std::size_t from = stepAt(axis, ascending_ ? upper : lower, ascending_);
    const std::size_t to = stepAt(axis, ascending_ ? lower : upper, ascending_);
    // Judged on the whole log, so that a band is drawn as it would be within the whole picture.
    const double extent = std::abs(axis.back() - axis.front()) * unit * view.unitsPer() / view.rowHeight;
    dense_ = !view.vectors && !view.paper &&
             static_cast<double>(axis.size()) > densePerRow * std::max(1.0, extent);
    // One step more on either side, and back to the anchor before it.
    first_ = from == 0 ? 0 : from - 1;
    first_ -= std::min(first_, (data.firstStep + first_) % anchorSteps);
    last_ = std::min(axis.size(), to + 2);
    if (dense_) findBorders(data, view, band);
}

void RowIndex::findBorders(const LogData& data, const DisplayView& view, const Band& band) {
    const auto axis = data.along(view.axis);
    const double unit = data.unitOf(view.axis);
    firstRow_ = std::lround(std::floor(band.top / view.rowHeight));
    const long end = std::lround(std::ceil(band.bottom / view.rowHeight));
    borders_.reserve(static_cast<std::size_t>(end - firstRow_) + 1);
    for (long row = firstRow_; row <= end; ++row) {
        const double position = view.positionAt(static_cast<double>(row) * view.rowHeight) / unit;
        borders_.push_back(stepAt(axis, position, ascending_));
    }
}

CurveTrace traceCurve(const LogData& data, const CurveSamples& samples, const CurveScale& scale,
                      const DisplayView& view, const RowIndex& index, bool asPoints) {
    CurveTrace trace;
    if (samples.values.size() != data.along(view.axis).size()) return trace;
    const ScaleMap map(scale);
    if (index.dense() && !asPoints) {
        traceRows(trace, data, samples, map, view, index);
    } else {
        traceLines(trace, data, samples, map, view, index);
    }
    return trace;
}

} // namespace tarvik
