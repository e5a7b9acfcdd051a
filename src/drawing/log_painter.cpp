#include "drawing/log_painter.h"

#include "drawing/curve_painter.h"
#include "drawing/grid_painter.h"
#include "drawing/head_painter.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// A bar is full, whatever lies beyond.
void keepOnScale(CurveTrace& trace) {
    for (TracePoint& point : trace.points) point.fraction = std::clamp(point.fraction, 0.0, 1.0);
    for (RowSpan& row : trace.rows) {
        row.from = std::clamp(row.from, 0.0, 1.0);
        row.to = std::clamp(row.to, 0.0, 1.0);
    }
}

/// Draws with a canvas on the display as the view lays it out, and gives the painter back as it was.
template <class Draw>
void onCanvas(QPainter& painter, const LogDisplay& display, const DisplayView& view, Draw&& draw) {
    const LogDisplay spaced = view.equallySpaced ? equallySpaced(display) : LogDisplay();
    const LogDisplay& laidOut = view.equallySpaced ? spaced : display;
    painter.save();
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    draw(Canvas{painter, laidOut, view, columnsOf(laidOut, view)});
    painter.restore();
}

} // namespace

double LogPainter::headHeight(const LogDisplay& display, const DisplayView& view) {
    const double height = headMillimetres(view.equallySpaced ? equallySpaced(display) : display);
    return std::ceil(view.millimetres(height));
}

void LogPainter::paint(QPainter& painter, const LogDisplay& display, const LogData& data,
                       const DisplayView& view) {
    const double head = headHeight(display, view);
    paintHead(painter, display, data, view);
    painter.save();
    painter.translate(0, head);
    paintBody(painter, display, data, view, view.height - head);
    painter.restore();
}

void LogPainter::paintHead(QPainter& painter, const LogDisplay& display, const LogData& data,
                           const DisplayView& view, double height) {
    const double needed = std::max(height, headHeight(display, view));
    onCanvas(painter, display, view, [&](const Canvas& canvas) { paintTrackHeads(canvas, data, needed); });
}

void LogPainter::paintBody(QPainter& painter, const LogDisplay& display, const LogData& data,
                           const DisplayView& view, double height, const Under& under) {
    if (height > 0) paintRows(painter, display, data, view, {0, height}, under);
}

void LogPainter::paintRows(QPainter& painter, const LogDisplay& display, const LogData& data,
                           const DisplayView& view, const Band& band, const Under& under) {
    onCanvas(painter, display, view, [&](const Canvas& canvas) {
        painter.setClipRect(QRectF(0, band.top, view.width, band.bottom - band.top), Qt::IntersectClip);
        paintGrid(canvas, data.units, band);
        painter.setRenderHint(QPainter::Antialiasing, view.vectors);
        paintBorders(canvas, band);
        paintMarkTexts(canvas, band); // no note hides a curve
        if (under) under(painter, view, band);
        paintCurvesOf(canvas, data, band);
        if (showsSpeedBar(canvas.display)) paintSpeed(canvas, data, band);
        paintDepthTrack(canvas, data, band);
        paintMarkLines(canvas, band);
    });
}

void LogPainter::paintCurves(QPainter& painter, const LogDisplay& display, const LogData& data,
                             const DisplayView& view, const Band& band) {
    onCanvas(painter, display, view, [&](const Canvas& canvas) { paintCurvesOf(canvas, data, band); });
}

CurveTrace LogPainter::traceOf(const Canvas& canvas, const LogData& data, const RowIndex& index,
                               const LogCurve& curve) {
    const ChannelData* channel = data.find(curve.channel);
    if (channel == nullptr) return {};
    // Means between 359 and 1 degrees would point the wrong way.
    const bool asPoints = curve.style.line == LineKind::points;
    const std::string filter = asPoints ? "None" : curve.filter;
    const CurveSamples samples = cache_.samples(data, *channel, filter);
    return traceCurve(data, samples, curve.scale, canvas.view, index, asPoints);
}

void LogPainter::paintSpeed(const Canvas& canvas, const LogData& data, const Band& band) {
    LogCurve bar;
    bar.channel = speedCurve;
    const ChannelData* const speed = data.find(speedCurve);
    if (speed == nullptr) return;
    bar.scale = {ScaleKind::linear, 0, fullSpeed(speed->unit)};
    bar.style.ownColour = canvas.display.scheme.quietText;
    bar.style.width = 0.15;
    bar.style.fill = FillKind::left;
    bar.offScale = OffScale::cut;
    const Column column{canvas.columns.depth.left, std::min(canvas.mm(2.4), canvas.columns.depth.width / 5)};
    CurveTrace trace = traceOf(canvas, data, RowIndex(data, canvas.view, band), bar);
    keepOnScale(trace);
    paintFill(canvas, bar, trace, column, band);
    paintLine(canvas, bar, trace, column, band);
}

void LogPainter::paintCurvesOf(const Canvas& canvas, const LogData& data, const Band& band) {
    const RowIndex index(data, canvas.view, band);
    for (std::size_t i = 0; i < canvas.display.tracks.size(); ++i) {
        const Column& column = canvas.columns.tracks[i];
        const auto curves = shownCurves(canvas.display.tracks[i]);
        std::vector<CurveTrace> traces;
        for (const LogCurve* curve : curves) traces.push_back(traceOf(canvas, data, index, *curve));
        // A fill lies below every line of its track.
        for (std::size_t c = 0; c < curves.size(); ++c)
            paintFill(canvas, *curves[c], traces[c], column, band);
        for (std::size_t c = 0; c < curves.size(); ++c)
            paintLine(canvas, *curves[c], traces[c], column, band);
    }
}

} // namespace tarvik
