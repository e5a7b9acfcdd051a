#include "screens/instrument_panel.h"

#include "base/number_picture.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr const char* unknown = "\u2013";
constexpr int depthPoints = 34;
constexpr int valuePoints = 18;

QLabel* digits(const QString& objectName, int points) {
    auto* const label = new QLabel(unknown);
    label->setObjectName(objectName);
    label->setStyleSheet(QString("font-size: %1pt; font-weight: 600;").arg(points));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

/// Its foot on the line of the digits beside it.
QLabel* unitBeside(QLabel* label, int points) {
    QFont large;
    large.setPointSize(points);
    large.setWeight(QFont::DemiBold);
    const QFont small;
    const int descent = QFontMetrics(large).descent() - QFontMetrics(small).descent();
    label->setContentsMargins(0, 0, 0, std::max(0, descent));
    return label;
}

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

InstrumentPanel::InstrumentPanel()
    : depth_(digits("lbdepth", depthPoints)),
      depthUnit_(roleLabel("quiet")),
      arrow_(new QLabel),
      speed_(digits("lbspeed", valuePoints)),
      current_(digits("lbcurrent", valuePoints)),
      currentBar_(new QProgressBar),
      voltage_(digits("lbvoltage", valuePoints)),
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
    currentBar_->setFixedHeight(6);
    currentBar_->setStyleSheet(
        "QProgressBar { min-height: 4px; } QProgressBar::chunk { background: palette(highlight); }");
    depth_->setAccessibleName("Depth");
    speed_->setAccessibleName("Logging speed");
    current_->setAccessibleName("Tool current");
    voltage_->setAccessibleName("Tool voltage");

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 6, 16, 6);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    grid->addWidget(roleLabel("quiet", "DEPTH"), 0, 0);
    grid->addWidget(arrow_, 1, 0);
    grid->addWidget(depth_, 1, 0, 1, 2);
    grid->addWidget(unitBeside(depthUnit_, depthPoints), 1, 2, Qt::AlignBottom);
    grid->addWidget(roleLabel("quiet", "SPEED"), 2, 0);
    grid->addWidget(speed_, 2, 1);
    auto* const speedUnit = roleLabel("quiet");
    speedUnit->setObjectName("lbspeedunit");
    grid->addWidget(unitBeside(speedUnit, valuePoints), 2, 2, Qt::AlignBottom);
    grid->addWidget(roleLabel("quiet", "CURRENT"), 3, 0);
    grid->addWidget(current_, 3, 1);
    grid->addWidget(unitBeside(roleLabel("quiet", "mA"), valuePoints), 3, 2, Qt::AlignBottom);
    grid->addWidget(currentBar_, 4, 0, 1, 3);
    grid->addWidget(roleLabel("quiet", "VOLTAGE"), 5, 0);
    grid->addWidget(voltage_, 5, 1);
    grid->addWidget(unitBeside(roleLabel("quiet", "V"), valuePoints), 5, 2, Qt::AlignBottom);
    grid->addWidget(prompt_, 6, 0, 1, 3);
    grid->addWidget(state_, 7, 0, 1, 3);
    grid->addWidget(why_, 8, 0, 1, 3);
    grid->addWidget(scans_, 9, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    setUnits(DepthUnits::metres);
    winchPrompt({}, {});
    clear();
}

void InstrumentPanel::clear() {
    depthMetres_.reset();
    metresPerMinute_.reset();
    showDigits();
    for (QLabel* const label : {current_, voltage_}) label->setText(unknown);
    currentBar_->setVisible(false);
    hideScans();
    setDirection(std::nullopt);
}

void InstrumentPanel::showSilence() {
    forgetTool();
    setRole(*depth_, "quiet");
}

void InstrumentPanel::showPoweredDown() {
    forgetTool();
    setRole(*depth_, "");
}

void InstrumentPanel::forgetTool() {
    metresPerMinute_.reset();
    showDigits();
    for (QLabel* const label : {current_, voltage_}) label->setText(unknown);
    currentBar_->setVisible(false);
}

void InstrumentPanel::setUnits(DepthUnits units) {
    units_ = units;
    const bool metres = units == DepthUnits::metres;
    depthUnit_->setText(metres ? "m" : "ft");
    if (auto* const unit = findChild<QLabel*>("lbspeedunit")) unit->setText(metres ? "m/min" : "ft/min");
    showDigits(); // what stands there follows its unit
}

void InstrumentPanel::setDirection(std::optional<Direction> direction) {
    arrow_->setText(!direction ? QString() : *direction == Direction::down ? "\u25bc" : "\u25b2");
    arrow_->setAccessibleName(!direction ? QString() : *direction == Direction::down ? "Down" : "Up");
}

void InstrumentPanel::showDepth(double metres) {
    depthMetres_ = metres;
    setRole(*depth_, "");
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
