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
constexpr int columnWidth = 168;
constexpr int leastDigits = 18; // pixels
constexpr int mostDigits = 34;  // seven of them fit the column

bool isCalibrated(const Calibration& calibration) {
    return calibration.order > 0 && calibration.state != "None";
}

/// About five digits, whatever the size of the value.
QString valueText(float value) {
    const double size = std::abs(double{value});
    const char* const picture = size >= 10000 ? "######0" : size >= 100 ? "###0.0" : "##0.000";
    return qt(formatPicture(value, picture));
}

} // namespace

LiveValues::LiveValues() : grid_(new QGridLayout(this)) {
    setObjectName("livevalues");
    setFixedWidth(columnWidth);
    grid_->setContentsMargins(12, 8, 12, 8);
    grid_->setHorizontalSpacing(20);
    grid_->setVerticalSpacing(4);
}

void LiveValues::setRun(const RunHeader& header) {
    values_.clear();
    for (QWidget* const old : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete old;
    for (int row = 0; row < grid_->rowCount(); ++row) grid_->setRowStretch(row, 0);
    const int count = static_cast<int>(header.channels.size()) - 1; // Speed stands first
    if (count <= 0) return;
    columns_ = (count + mostRows - 1) / mostRows;
    const int rows = (count + columns_ - 1) / columns_;
    setFixedWidth(columns_ * columnWidth);
    for (int i = 0; i < count; ++i) add(header.channels[static_cast<std::size_t>(i) + 1], i, rows);
    for (int row = 0; row < rows; ++row) grid_->setRowStretch(row, 1);
    for (int column = 0; column < columns_; ++column) grid_->setColumnStretch(column, 1);
    digitPixels_ = 0;
    fitDigits();
}

void LiveValues::add(const RunChannel& channel, int at, int rows) {
    auto* const cell = new QWidget;
    auto* const lines = new QGridLayout(cell);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setHorizontalSpacing(6);
    lines->setVerticalSpacing(0);
    auto* const swatch = new QFrame;
    swatch->setFixedSize(12, 4);
    auto* const name = new QLabel(qt(channel.name));
    name->setMinimumWidth(20);
    auto* const digits = new QLabel("\u2013");
    digits->setObjectName(QString("lbvalue%1").arg(at + 1));
    digits->setAccessibleName(qt(channel.name));
    digits->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    digits->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    const bool calibrated = isCalibrated(channel.calibration);
    auto* const unit = roleLabel(calibrated ? "quiet" : "warning", calibrated ? qt(channel.unit) : "counts");
    if (!calibrated) unit->setToolTip("Counts: the channel has no calibration");
    lines->addWidget(swatch, 0, 0, Qt::AlignVCenter);
    lines->addWidget(name, 0, 1);
    lines->addWidget(unit, 0, 2, Qt::AlignRight);
    lines->addWidget(digits, 1, 0, 1, 3);
    lines->setColumnStretch(1, 1);
    lines->setRowStretch(2, 1);
    grid_->addWidget(cell, at % rows, at / rows);
    values_.push_back({channel.name, swatch, digits});
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

void LiveValues::show(const AcquisitionPoint& point) {
    for (std::size_t i = 0; i < values_.size() && i < maxChannels; ++i)
        values_[i].digits->setText(valueText(point.values[i + 1]));
}

void LiveValues::resizeEvent(QResizeEvent*) {
    fitDigits();
}

/// As large as the height of a row allows.
void LiveValues::fitDigits() {
    const int count = static_cast<int>(values_.size());
    if (count == 0) return;
    const int rows = (count + columns_ - 1) / columns_;
    const int pixels = std::clamp((height() / rows - 28) * 3 / 4, leastDigits, mostDigits);
    if (pixels == digitPixels_) return;
    digitPixels_ = pixels;
    for (const Value& value : values_) {
        value.digits->setStyleSheet(QString("font-size: %1px; font-weight: 600;").arg(pixels));
        value.digits->setFixedHeight(pixels * 5 / 4);
    }
}

} // namespace tarvik
