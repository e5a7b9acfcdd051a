#include "screens/live_values.h"

#include "base/number_picture.h"
#include "drawing/canvas.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int mostRows = 13;
constexpr int nameHeight = 20;
constexpr int mostRowHeight = 92;
constexpr int leastDigits = 18; // pixels
constexpr int unitWidth = 60;

constexpr double mostDigits = 1e6; ///< seven signs with the one of a negative value

/// About five digits, whatever the size of the value; whole counts have no decimals. What would not fit its
/// column counts millions: a number without its first digits is another one.
QString valueText(float value, bool calibrated) {
    const double size = std::abs(double{value});
    if (size >= 1e10) return value < 0 ? "< -1e10" : "> 1e10";
    if (size >= mostDigits)
        return qt(formatPicture(double{value} / 1e6, size < 1e7 ? "0.00" : size < 1e8 ? "0.0" : "0")) + "e6";
    const bool whole = size >= 10000 || (!calibrated && value == std::round(value));
    const bool tenths = size >= 100 || !calibrated;
    return qt(formatPicture(value, whole ? "######0" : tenths ? "###0.0" : "##0.000"));
}

} // namespace

/// What lifts the unit onto the line of the digits, which stand in the middle of their room.
int unitFoot(const QLabel& digits, const QLabel& unit) {
    digits.ensurePolished();
    const QFontMetrics large(digits.font());
    return (digits.height() - large.height()) / 2 + large.descent() - QFontMetrics(unit.font()).descent();
}

LiveValues::LiveValues() : grid_(new QGridLayout(this)) {
    setObjectName("livevalues");
    setProperty("card", true);
    setStyleSheet("#livevalues { border: none; border-left: 1px solid palette(mid); border-radius: 0; }");
    // The digits take the height that there is; they never make the window taller.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    grid_->setSizeConstraint(QLayout::SetNoConstraint);
    grid_->setContentsMargins(12, 8, 12, 8);
    grid_->setHorizontalSpacing(20);
    grid_->setVerticalSpacing(0);
    setColumnWidth(216);
}

void LiveValues::setRun(const RunHeader& header) {
    values_.clear();
    for (QWidget* const old : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete old;
    const int count = static_cast<int>(header.channels.size()) - 1; // Speed stands first
    if (count <= 0) return;
    columns_ = (count + mostRows - 1) / mostRows;
    rows_ = (count + columns_ - 1) / columns_;
    for (int i = 0; i < count; ++i) add(header.channels[static_cast<std::size_t>(i) + 1], i);
    for (int row = 0; row < mostRows; ++row) grid_->setRowStretch(row, 0);
    grid_->setRowStretch(mostRows, 1); // few channels stand together at the top
    for (int column = 0; column < columns_; ++column) grid_->setColumnStretch(column, 1);
    digitPixels_ = 0;
    setColumnWidth(columnWidth_);
    fitDigits();
}

void LiveValues::setColumnWidth(int width) {
    columnWidth_ = width;
    setFixedWidth(columns_ * width);
}

void LiveValues::add(const RunChannel& channel, int at) {
    auto* const cell = new QWidget;
    auto* const lines = new QGridLayout(cell);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setHorizontalSpacing(6);
    lines->setVerticalSpacing(0);
    auto* const swatch = new QFrame;
    swatch->setFixedSize(12, 4);
    auto* const name = new QLabel(qt(channel.name));
    name->setMinimumWidth(20);
    name->setFixedHeight(nameHeight);
    auto* const digits = new QLabel("\u2013");
    digits->setObjectName(QString("lbvalue%1").arg(at + 1));
    digits->setAccessibleName(qt(channel.name));
    digits->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    digits->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    const bool calibrated = isCalibrated(channel.calibration);
    auto* const unit = roleLabel(calibrated ? "quiet" : "warning", calibrated ? qt(channel.unit) : "counts");
    if (!calibrated) unit->setToolTip("Counts: the channel has no calibration");
    unit->setFixedWidth(unitWidth);
    unit->setStyleSheet("font-size: 8pt;");
    lines->addWidget(swatch, 0, 0, Qt::AlignVCenter);
    lines->addWidget(name, 0, 1, 1, 2);
    lines->addWidget(digits, 1, 0, 1, 2);
    lines->addWidget(unit, 1, 2, Qt::AlignBottom);
    lines->setColumnStretch(1, 1);
    lines->setRowStretch(2, 1);
    grid_->addWidget(cell, at % rows_, at / rows_);
    values_.push_back({channel.name, calibrated, cell, swatch, digits, unit});
}

void LiveValues::setColours(const LogDisplay& display) {
    for (const Value& value : values_) {
        QString colour = "transparent";
        for (const Track& track : display.tracks) {
            const auto curve = std::ranges::find(track.curves, value.channel, &LogCurve::channel);
            if (curve != track.curves.end()) colour = qColour(colourOf(*curve, display.scheme)).name();
        }
        value.swatch->setStyleSheet("background: " + colour + "; border: none;");
    }
}

void LiveValues::showPoint(const AcquisitionPoint& point) {
    for (std::size_t i = 0; i < values_.size() && i < maxChannels; ++i)
        values_[i].digits->setText(valueText(point.values[i + 1], values_[i].calibrated));
}

void LiveValues::resizeEvent(QResizeEvent*) {
    fitDigits();
}

/// As large as the height of a row and the width of the column allow; seven of them fit beside the unit.
void LiveValues::fitDigits() {
    if (values_.empty()) return;
    const int row = std::min(mostRowHeight, (height() - 16) / rows_);
    const int widest = static_cast<int>((columnWidth_ - unitWidth - 24) / 4.6);
    const int pixels = std::max(leastDigits, std::min((row - nameHeight - 6) * 3 / 4, widest));
    if (pixels == digitPixels_ && row == rowHeight_) return;
    digitPixels_ = pixels;
    rowHeight_ = row;
    for (const Value& value : values_) {
        value.cell->setFixedHeight(row);
        value.digits->setStyleSheet(QString("font-size: %1px; font-weight: 600;").arg(pixels));
        value.digits->setFixedHeight(pixels * 5 / 4);
        value.unit->setContentsMargins(0, 0, 0, unitFoot(*value.digits, *value.unit));
    }
}

} // namespace tarvik
