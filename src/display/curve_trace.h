// A curve on its way to the picture: how far across its track it runs at each height. What it costs is bound
// by the rows of the picture, not by the steps of the log.
//
// Heights are painter units below the upper edge of the body. Fractions are those of the curve's scale; they
// go on beyond 0 and 1.
#pragma once

#include "display/display_view.h"
#include "display/log_cache.h"
#include "display/log_display.h"

#include <vector>

namespace tarvik {

/// A horizontal band of the body, in painter units.
struct Band {
    double top = 0;
    double bottom = 0;
};

/// The steps of a log in the rows of a picture; shared by all its curves.
class RowIndex {
  public:
    RowIndex(const LogData& data, const DisplayView& view, const Band& band);

    /// Steps in order along the axis, and so many to a row that lines would only paint over each other.
    [[nodiscard]] bool dense() const { return dense_; }
    /// The steps that matter within the band: those in it and one more at either end.
    [[nodiscard]] std::size_t first() const { return first_; }
    [[nodiscard]] std::size_t last() const { return last_; }

    // Of a dense one. Border r lies above row r and below row r - 1.
    [[nodiscard]] long firstRow() const { return firstRow_; }
    [[nodiscard]] std::size_t rows() const { return borders_.empty() ? 0 : borders_.size() - 1; }
    /// The steps on its two sides are border(r) - 1 and border(r).
    [[nodiscard]] std::size_t border(std::size_t r) const { return borders_[r]; }

  private:
    void findBorders(const LogData& data, const DisplayView& view, const Band& band);

    std::size_t first_ = 0;
    std::size_t last_ = 0;
    bool ascending_ = true;
    bool dense_ = false;
    long firstRow_ = 0;
    std::vector<std::size_t> borders_;
};

struct TracePoint {
    double fraction = 0;
    double y = 0;
};
struct RowSpan {
    long row = 0; ///< covers y from row to row + 1 times the view's row height
    double from = 0;
    double to = 0;
};

/// Lines where the log is spread out, spans of rows where it is dense.
struct CurveTrace {
    std::vector<TracePoint> points;
    std::vector<std::size_t> pieces; ///< where the lines begin among the points
    std::vector<RowSpan> rows;
};

/// `asPoints`: never rows, which would join what is only dotted.
[[nodiscard]] CurveTrace traceCurve(const LogData& data, const CurveSamples& samples, const CurveScale& scale,
                                    const DisplayView& view, const RowIndex& index, bool asPoints = false);

} // namespace tarvik
