#include "screens/instrument_panel.h"

#include "base/number_picture.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr const char* unknown = "\u2013";
constexpr int depthPoints = 34;
constexpr int valuePoints = 18;
constexpr int lowDepthPoints = 24;
constexpr int lowValuePoints = 12;

struct StateLook {
    const char* role;
    const char* shape; ///< tells the states apart without colour
    const char* words;
};

StateLook lookOf(KeepingState state) {
    switch (state) {
    case KeepingState::kept:
        return {"good", "\u25cf", "RECORDING"};
    case KeepingState::tooDeep:
        return {"bad", "\u25b2", "TOO DEEP FOR FILE"};
    case KeepingState::notRecording:
        return {"warning", "\u25a0", "NOT RECORDING"};
    case KeepingState::communicationsLost:
        return {"bad", "\u2716", "COMMUNICATIONS LOST"};
    case KeepingState::writeFailed:
        return {"bad", "\u2716", "FILE NOT WRITTEN"};
    case KeepingState::depthJump:
    case KeepingState::outOfRange:
    case KeepingState::otherChannels:
    case KeepingState::noScans:
        break;
    }
    return {"bad", "\u25b2", "NO SCAN KEPT"};
}

} // namespace

/// A title, the digits and their unit in one line.
class InstrumentPanel::Reading final : public QWidget {
  public:
    Reading(const QString& objectName, const QString& title, const QString& name, const QString& unit)
        : title_(roleLabel("quiet", title)), digits_(new QLabel(unknown)), unit_(roleLabel("quiet", unit)) {
        digits_->setObjectName(objectName);
        digits_->setAccessibleName(name);
        digits_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        unit_->setObjectName(objectName + "unit");
        auto* const line = new QHBoxLayout(this);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(6);
        line->addWidget(title_);
        line->addWidget(digits_, 1);
        line->addWidget(unit_, 0, Qt::AlignBottom);
    }

    void setTitled(bool titled) { title_->setVisible(titled); }
    void setText(const QString& text) { digits_->setText(text); }
    void setUnit(const QString& unit) { unit_->setText(unit); }
    /// So that units stand under each other; 0: as wide as it is.
    void setUnitWidth(int width) { unit_->setMinimumWidth(width); }
    void setPale(bool pale) { setRole(*digits_, pale ? "quiet" : ""); }

    /// The unit keeps its foot on the line of the digits.
    void setPoints(int points) {
        digits_->setStyleSheet(QString("font-size: %1pt; font-weight: 600;").arg(points));
        QFont large;
        large.setPointSize(points);
        large.setWeight(QFont::DemiBold);
        const QFont small;
        const int descent = QFontMetrics(large).descent() - QFontMetrics(small).descent();
        unit_->setContentsMargins(0, 0, 0, std::max(0, descent));
    }

  private:
    QLabel* title_;
    QLabel* digits_;
    QLabel* unit_;
};

InstrumentPanel::InstrumentPanel()
    : depthTitle_(roleLabel("quiet", "DEPTH")),
      depth_(new Reading("lbdepth", "", "Depth", "m")),
      arrow_(new QLabel),
      readings_(new QBoxLayout(QBoxLayout::TopToBottom)),
      speed_(new Reading("lbspeed", "SPEED", "Logging speed", "m/min")),
      current_(new Reading("lbcurrent", "CURRENT", "Tool current", "mA")),
      currentBar_(new QProgressBar),
      voltage_(new Reading("lbvoltage", "VOLTAGE", "Tool voltage", "V")),
      prompt_(roleLabel("warning")),
      state_(new QLabel),
      why_(roleLabel("quiet")),
      scans_(roleLabel("quiet")) {
    setProperty("card", true);
    arrow_->setObjectName("lbdirection");
    arrow_->setStyleSheet("font-size: 22pt;");
    prompt_->setObjectName("lbwinchprompt");
    prompt_->setAlignment(Qt::AlignCenter);
    state_->setObjectName("lbrecordingstate");
    state_->setStyleSheet("font-size: 13pt;");
    why_->setObjectName("lbrecordingreason");
    why_->setWordWrap(true);
    scans_->setObjectName("lbscans");
    currentBar_->setTextVisible(false);
    currentBar_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as its digits
    currentBar_->setFixedHeight(6);
    currentBar_->setStyleSheet(
        "QProgressBar { min-height: 4px; } QProgressBar::chunk { background: palette(highlight); }");

    auto* const depthLine = new QHBoxLayout;
    depthLine->addWidget(arrow_);
    depthLine->addWidget(depth_, 1);
    auto* const currentColumn = new QVBoxLayout;
    currentColumn->setSpacing(2);
    currentColumn->addWidget(current_);
    currentColumn->addWidget(currentBar_);
    currentColumn->addStretch(1);
    readings_->addWidget(speed_);
    readings_->addLayout(currentColumn);
    readings_->addWidget(voltage_);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 6, 16, 6);
    column->setSpacing(2);
    column->addWidget(depthTitle_);
    column->addLayout(depthLine);
    column->addLayout(readings_);
    for (QLabel* const label : {prompt_, state_, why_, scans_}) column->addWidget(label);
    depth_->setTitled(false);
    setLow(false);
    setUnits(DepthUnits::metres);
    winchPrompt({}, {});
    clear();
}

void InstrumentPanel::setLow(bool low) {
    depthTitle_->setVisible(!low);
    depth_->setPoints(low ? lowDepthPoints : depthPoints);
    readings_->setDirection(low ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    readings_->setSpacing(low ? 12 : 2);
    for (Reading* const reading : {speed_, voltage_}) // in line with the current, which has its bar below
        readings_->setAlignment(reading, low ? Qt::AlignTop : Qt::Alignment());
    const int unitWidth = QFontMetrics(font()).horizontalAdvance("m/min") + 2;
    for (Reading* const reading : {depth_, speed_, current_, voltage_})
        reading->setUnitWidth(low ? 0 : unitWidth);
    for (Reading* const reading : {speed_, current_, voltage_}) {
        reading->setTitled(!low); // the units tell them apart
        reading->setPoints(low ? lowValuePoints : valuePoints);
    }
}

void InstrumentPanel::clear() {
    depthMetres_.reset();
    metresPerMinute_.reset();
    showDigits();
    for (Reading* const reading : {current_, voltage_}) reading->setText(unknown);
    currentBar_->setVisible(false);
    hideScans();
    setDirection(std::nullopt);
}

void InstrumentPanel::showSilence() {
    forgetTool();
    depth_->setPale(true);
}

void InstrumentPanel::showPoweredDown() {
    forgetTool();
    depth_->setPale(false);
}

void InstrumentPanel::forgetTool() {
    metresPerMinute_.reset();
    showDigits();
    for (Reading* const reading : {current_, voltage_}) reading->setText(unknown);
    currentBar_->setVisible(false);
}

void InstrumentPanel::setUnits(DepthUnits units) {
    units_ = units;
    const bool metres = units == DepthUnits::metres;
    depth_->setUnit(metres ? "m" : "ft");
    speed_->setUnit(metres ? "m/min" : "ft/min");
    showDigits(); // what stands there follows its unit
}

void InstrumentPanel::setDirection(std::optional<Direction> direction) {
    arrow_->setText(!direction ? QString() : *direction == Direction::down ? "\u25bc" : "\u25b2");
    arrow_->setAccessibleName(!direction ? QString() : *direction == Direction::down ? "Down" : "Up");
}

void InstrumentPanel::showDepth(double metres) {
    depthMetres_ = metres;
    depth_->setPale(false);
    showDigits();
}

void InstrumentPanel::showSpeed(double metresPerMinute) {
    metresPerMinute_ = metresPerMinute;
    showDigits();
}

void InstrumentPanel::showDigits() {
    const auto text = [this](const std::optional<double>& metres, const char* picture) {
        return metres ? qt(formatPicture(fromMetres(*metres, units_), picture)) : QString(unknown);
    };
    depth_->setText(text(depthMetres_, "###0.00"));
    speed_->setText(text(metresPerMinute_, "#0.0"));
}

void InstrumentPanel::showCurrent(float milliamps, std::optional<float> volts, int limit) {
    current_->setText(qt(formatPicture(milliamps, "##0")));
    voltage_->setText(volts ? qt(formatPicture(*volts, "##0")) : QString(unknown));
    currentBar_->setVisible(limit > 0);
    if (limit <= 0) return;
    currentBar_->setMaximum(limit);
    currentBar_->setValue(std::clamp(static_cast<int>(std::lround(milliamps)), 0, limit));
    currentBar_->setToolTip(
        QString("%1 % of the tool's maximum of %2 mA").arg(100 * currentBar_->value() / limit).arg(limit));
}

void InstrumentPanel::winchPrompt(std::string_view firstLine, std::string_view secondLine) {
    prompt_->setVisible(!firstLine.empty());
    prompt_->setText(qt(firstLine) + "\n" + qt(secondLine));
    state_->setVisible(firstLine.empty());
    why_->setVisible(firstLine.empty() && !why_->text().isEmpty());
}

void InstrumentPanel::showKeeping(KeepingState state, std::string_view words) {
    const StateLook look = lookOf(state);
    showState(look.role, QString("%1  %2").arg(QString::fromUtf8(look.shape), look.words), qt(words));
}

void InstrumentPanel::showIdle(const QString& words, const QString& remedy) {
    showState("quiet", words, remedy);
}

void InstrumentPanel::showNotStarted() {
    showState("bad", "\u2716  RUN NOT STARTED", "Leave the winch. The event log says why.");
}

void InstrumentPanel::hideScans() {
    scans_->clear();
    scans_->hide();
}

void InstrumentPanel::showScans(long scans, const QString& fileSize) {
    scans_->show();
    scans_->setText(QString("%1 %2, %3").arg(scans).arg(scans == 1 ? "scan" : "scans", fileSize));
}

void InstrumentPanel::showState(const char* role, const QString& headline, const QString& why) {
    setRole(*state_, role);
    state_->setText(headline);
    why_->setText(why);
    why_->setVisible(!why.isEmpty());
}

} // namespace tarvik
