#include "screens/live_values.h"

#include "base/number_picture.h"
#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QGridLayout>
#include <QLabel>

#include <cmath>

namespace tarvik {

namespace {

constexpr int columns = 3;

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

LiveValues::LiveValues() {
    setObjectName("livevalues");
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    auto* const all = new QWidget;
    cards_ = new QGridLayout(all);
    cards_->setContentsMargins(16, 16, 16, 16);
    cards_->setSpacing(12);
    setWidget(all);
}

void LiveValues::setRun(const RunHeader& header) {
    values_.clear();
    while (QLayoutItem* const item = cards_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (std::size_t i = 1; i < header.channels.size(); ++i) {
        const RunChannel& channel = header.channels[i];
        const bool calibrated = isCalibrated(channel.calibration);
        auto* const card = new Card(qt(channel.name));
        auto* const value = new QLabel("\u2013");
        value->setObjectName(QString("lbvalue%1").arg(i));
        value->setAccessibleName(qt(channel.name));
        value->setStyleSheet("font-size: 22pt; font-weight: 600;");
        value->setAlignment(Qt::AlignRight);
        card->body()->addWidget(value);
        card->body()->addWidget(calibrated ? roleLabel("quiet", qt(channel.unit))
                                           : roleLabel("warning", "counts, not calibrated"));
        values_.push_back(value);
        const int at = static_cast<int>(i - 1);
        cards_->addWidget(card, at / columns, at % columns);
    }
    cards_->setRowStretch(static_cast<int>(values_.size()) / columns + 1, 1);
    for (int i = 0; i < columns; ++i) cards_->setColumnStretch(i, 1);
}

void LiveValues::showScan(const CurrentScan& scan) {
    for (std::size_t i = 0; i < values_.size() && i < maxChannels; ++i)
        values_[i]->setText(valueText(scan.calibrated[i + 1]));
}

} // namespace tarvik
