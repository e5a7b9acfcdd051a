#include "drawing/curve_painter.h"

#include "drawing/fine_lines.h"
#include "drawing/off_scale_marks.h"

#include <QList>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <span>

namespace tarvik {

namespace {

constexpr int mostBackups = 4; // widths beyond the track; a mark at its edge tells of what lies further off
constexpr float fillStrength = 0.22F;
// A backup is sparse dots, thinner and paler than any curve, so that nobody reads it on the first scale.
constexpr double backupTint = 0.8;
constexpr double backupDot = 0.6;  // mm
constexpr double backupStep = 2.4; // mm from dot to dot

/// A curve, a backup of it or a fill has the same few things to know.
struct Strand {
    const Canvas& canvas;
    const LogCurve& curve;
    const Column& column;
    bool backup = false; ///< what is off scale, moved by widths of the track

    [[nodiscard]] QColor colour() const {
        const Scheme& scheme = canvas.display.scheme;
        const Colour own = colourOf(curve, scheme);
        return qColour(backup ? blended(scheme.surface, own, backupTint) : own);
    }
    [[nodiscard]] double x(double fraction) const { return column.left + fraction * column.width; }
    /// Where a line goes: a value at an end of its scale lies beside the border, not under it.
    [[nodiscard]] double lineX(double fraction) const {
        const double inset =
            std::min(std::max(1.0, canvas.mm(curve.style.width / 2 + 0.1)), column.width / 2);
        return std::clamp(x(fraction), column.left + inset, column.right() - inset);
    }
    [[nodiscard]] double inside(double fraction) const { return x(std::clamp(fraction, 0.0, 1.0)); }
    [[nodiscard]] double fillEdge() const {
        switch (curve.style.fill) {
        case FillKind::right:
            return inside(1);
        case FillKind::base:
            return inside(ScaleMap(curve.scale).fraction(curve.base));
        case FillKind::left:
        case FillKind::none:
            break;
        }
        return inside(0);
    }
    [[nodiscard]] QColor fillColour() const {
        const Scheme& scheme = canvas.display.scheme;
        QColor colour = qColour(colourOf(curve, scheme)); // the grid is read through it
        colour.setAlphaF(fillStrength);
        return colour;
    }
};

using Piece = std::span<const TracePoint>;

template <class Visit>
void forEachPiece(const CurveTrace& trace, Visit&& visit) {
    for (std::size_t i = 0; i < trace.pieces.size(); ++i) {
        const std::size_t end = i + 1 < trace.pieces.size() ? trace.pieces[i + 1] : trace.points.size();
        visit(Piece(trace.points).subspan(trace.pieces[i], end - trace.pieces[i]));
    }
}

void fillPieces(const Strand& strand, const CurveTrace& trace, const Band& band) {
    QPainter& painter = strand.canvas.painter;
    const double edge = strand.fillEdge();
    painter.setPen(Qt::NoPen);
    painter.setBrush(strand.fillColour());
    forEachPiece(trace, [&](Piece piece) {
        QPolygonF area;
        area.reserve(static_cast<qsizetype>(piece.size()) + 2);
        const auto held = [&](double y) {
            return strand.canvas.view.vectors ? std::clamp(y, band.top, band.bottom) : y;
        };
        area.append({edge, held(piece.front().y)});
        for (const TracePoint& point : piece) area.append({strand.inside(point.fraction), held(point.y)});
        area.append({edge, held(piece.back().y)});
        painter.drawPolygon(area);
    });
    painter.setBrush(Qt::NoBrush);
}

void fillRows(const Strand& strand, const CurveTrace& trace) {
    const double height = strand.canvas.view.rowHeight;
    const double edge = strand.fillEdge();
    const QColor colour = strand.fillColour();
    for (const RowSpan& span : trace.rows) {
        const double x = strand.inside((span.from + span.to) / 2);
        strand.canvas.painter.fillRect(
            QRectF(std::min(x, edge), static_cast<double>(span.row) * height, std::abs(x - edge), height),
            colour);
    }
}

/// The part of a segment within [least, most] of one of its coordinates; false when there is none.
bool cutTo(TracePoint& one, TracePoint& other, double TracePoint::*coordinate, double least, double most) {
    const TracePoint from = one;
    const double length = other.*coordinate - from.*coordinate;
    const auto at = [&](double place) {
        const double part = (place - from.*coordinate) / length;
        return TracePoint{from.fraction + (other.fraction - from.fraction) * part,
                          from.y + (other.y - from.y) * part};
    };
    const TracePoint whole = other;
    if (std::max(from.*coordinate, whole.*coordinate) < least) return false;
    if (std::min(from.*coordinate, whole.*coordinate) > most) return false;
    const auto cut = [&](TracePoint& point) {
        if (point.*coordinate < least) return at(least);
        if (point.*coordinate > most) return at(most);
        return point;
    };
    const TracePoint start = cut(one);
    const TracePoint end = cut(other);
    one = start;
    other = end;
    return true;
}

/// A value between two gaps is a dot.
void drawLoneValue(const Strand& strand, const TracePoint& value, int n, const Band& band) {
    if (value.fraction < n || value.fraction > n + 1) return;
    if (strand.canvas.view.vectors && (value.y < band.top || value.y > band.bottom)) return;
    QPainter& painter = strand.canvas.painter;
    const QPen pen = painter.pen();
    const double radius = strand.canvas.mm(n == 0 ? 0.4 : 0.25); // smaller for a backup, as its line is
    painter.setPen(Qt::NoPen);
    painter.setBrush(pen.color());
    painter.drawEllipse(QPointF(strand.lineX(value.fraction - n), value.y), radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
}

/// The parts of a piece in the n-th width of the track, moved into it. Cut here and not by the painter's clip
/// alone: a drawing that keeps lines as lines knows no clip.
void drawPiece(const Strand& strand, Piece piece, int n, const Band& band) {
    QPolygonF run;
    const bool exact = strand.canvas.view.vectors;
    const bool onScreen = !exact && !strand.canvas.view.paper;
    const auto draw = [&] {
        QPainter& painter = strand.canvas.painter;
        if (run.size() > 1) onScreen ? drawFineLine(painter, run) : painter.drawPolyline(run);
        run.clear();
    };
    // A value without a logarithm has no place that a line could lead to.
    const auto nowhere = [&](const TracePoint& point) {
        return strand.curve.scale.kind == ScaleKind::logarithmic &&
               std::abs(point.fraction) >= ScaleMap::furthest;
    };
    for (std::size_t i = 1; i < piece.size(); ++i) {
        TracePoint one = piece[i - 1];
        TracePoint other = piece[i];
        if (nowhere(one) || nowhere(other)) {
            draw();
            continue;
        }
        if (!cutTo(one, other, &TracePoint::fraction, n, n + 1) ||
            (exact && !cutTo(one, other, &TracePoint::y, band.top, band.bottom))) {
            draw();
            continue;
        }
        const QPointF start(strand.lineX(one.fraction - n), one.y);
        if (!run.empty() && run.last() != start) draw();
        if (run.empty()) run.append(start);
        run.append({strand.lineX(other.fraction - n), other.y});
    }
    draw();
    if (piece.size() == 1) drawLoneValue(strand, piece.front(), n, band);
}

void drawPoints(const Strand& strand, const CurveTrace& trace, int n, const Band& band) {
    QList<QPointF> points;
    for (const TracePoint& point : trace.points) {
        if (point.fraction < n || point.fraction > n + 1) continue;
        if (strand.canvas.view.vectors && (point.y < band.top || point.y > band.bottom)) continue;
        points.append({strand.lineX(point.fraction - n), point.y});
    }
    strand.canvas.painter.drawPoints(points);
}

bool isOn(const Strand& strand, long row) {
    const LogCurve& curve = strand.curve;
    const DisplayView& view = strand.canvas.view;
    const double along =
        (static_cast<double>(row) + std::round(view.top * view.unitsPer() / view.rowHeight)) *
        view.rowHeight / view.unitsPerMillimetre;
    if (strand.backup) return along - std::floor(along / backupStep) * backupStep < backupDot;
    switch (curve.style.line) {
    case LineKind::dashed:
        return along - std::floor(along / 3.3) * 3.3 < 2.2;
    case LineKind::dotted:
        return along - std::floor(along / 1.3) * 1.3 < 0.6;
    case LineKind::dashDot: {
        const double part = along - std::floor(along / 4.7) * 4.7;
        return part < 2.6 || (part >= 3.4 && part < 4.0);
    }
    case LineKind::solid:
    case LineKind::points:
        break;
    }
    return true;
}

void drawRows(const Strand& strand, const CurveTrace& trace, int n, double width) {
    const DisplayView& view = strand.canvas.view;
    QList<QRectF> rows;
    rows.reserve(static_cast<qsizetype>(trace.rows.size()));
    const bool decades = strand.curve.scale.kind == ScaleKind::logarithmic;
    for (RowSpan span : trace.rows) {
        if (decades && span.from <= -ScaleMap::furthest) span.from = span.to;
        if (decades && span.to >= ScaleMap::furthest) span.to = span.from;
        if (span.to < n || span.from > n + 1) continue;
        // A dash may hide a row of a steep line, never a thin bed.
        const bool steep = (span.to - span.from) * strand.column.width < 3 * width;
        if (steep && !isOn(strand, span.row)) continue;
        const double from = strand.lineX(span.from - n) - width / 2;
        const double to = strand.lineX(span.to - n) + width / 2;
        rows.append(QRectF(from, static_cast<double>(span.row) * view.rowHeight, to - from, view.rowHeight));
    }
    strand.canvas.painter.setPen(Qt::NoPen);
    strand.canvas.painter.setBrush(strand.colour());
    strand.canvas.painter.drawRects(rows);
    strand.canvas.painter.setBrush(Qt::NoBrush);
}

struct Backups {
    int first = 0;
    int last = 0;
};

Backups backupsOf(const LogCurve& curve, const CurveTrace& trace) {
    if (curve.offScale == OffScale::cut) return {};
    Backups backups;
    const auto reach = [&](double fraction) {
        // The right end still belongs to the scale.
        const int n = static_cast<int>(fraction > 0 ? std::ceil(fraction) - 1 : std::floor(fraction));
        backups.first = std::max(-mostBackups, std::min(backups.first, n));
        backups.last = std::min(mostBackups, std::max(backups.last, n));
    };
    for (const TracePoint& point : trace.points) reach(point.fraction);
    for (const RowSpan& span : trace.rows) {
        reach(span.from);
        reach(span.to);
    }
    return backups;
}

QPen penOf(const Strand& strand) {
    if (!strand.backup) return curvePen(strand.canvas, strand.curve);
    LogCurve thin = strand.curve;
    thin.style.width *= 0.7;
    thin.style.line = LineKind::solid;
    QPen pen = curvePen(strand.canvas, thin);
    pen.setColor(strand.colour());
    const double unit = strand.canvas.mm(1) / pen.widthF();
    pen.setDashPattern({backupDot * unit, (backupStep - backupDot) * unit});
    return pen;
}

} // namespace

void paintFill(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace, const Column& column,
               const Band& band) {
    if (curve.style.fill == FillKind::none) return;
    const Strand strand{canvas, curve, column};
    QPainter& painter = canvas.painter;
    painter.save();
    painter.setClipRect(QRectF(column.left, band.top, column.width, band.bottom - band.top),
                        Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, true);
    fillPieces(strand, trace, band);
    painter.setRenderHint(QPainter::Antialiasing, false);
    fillRows(strand, trace);
    painter.restore();
}

void paintLine(const Canvas& canvas, const LogCurve& curve, const CurveTrace& trace, const Column& column,
               const Band& band) {
    QPainter& painter = canvas.painter;
    painter.save();
    painter.setClipRect(QRectF(column.left, band.top, column.width, band.bottom - band.top),
                        Qt::IntersectClip);
    const Backups backups = backupsOf(curve, trace);
    for (int n = backups.first; n <= backups.last; ++n) {
        const Strand strand{canvas, curve, column, n != 0};
        const QPen pen = penOf(strand);
        painter.setRenderHint(QPainter::Antialiasing, false);
        drawRows(strand, trace, n, pen.widthF());
        painter.setPen(pen);
        painter.setRenderHint(QPainter::Antialiasing, true);
        if (curve.style.line == LineKind::points) {
            QPen dot(pen.color());
            dot.setCapStyle(Qt::RoundCap);
            dot.setWidthF(std::max(n == 0 ? 2.0 : 1.0, canvas.mm(curve.style.width * (n == 0 ? 1 : 0.5))));
            painter.setPen(dot);
            drawPoints(strand, trace, n, band);
        } else {
            forEachPiece(trace, [&](Piece piece) { drawPiece(strand, piece, n, band); });
        }
    }
    const bool cut = curve.offScale == OffScale::cut;
    paintOffScaleMarks(canvas, curve, trace, column,
                       {cut ? 0.F : -mostBackups, cut ? 1.F : mostBackups + 1.F});
    painter.restore();
}

} // namespace tarvik
