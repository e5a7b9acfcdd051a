#include "screens/setup_sampling.h"

#include "app/sampling_checks.h"
#include "base/text.h"
#include "screens/card.h"
#include "screens/equipment_choice_list.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/setup_page.h"
#include "screens/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace tarvik {

namespace {

constexpr int first = 0; // "TIME", "DOWN", metres
constexpr int second = 1;

QLineEdit* editOf(const Field& field) {
    return static_cast<QLineEdit*>(field.editor());
}

} // namespace

SetupSampling::SetupSampling(const SetupModules& modules)
    : modules_(modules),
      tool_(new QComboBox),
      winch_(new QComboBox),
      currentWinch_(wrappingLabel({}, "quiet")) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(measure::wide);
    grid->addWidget(buildEquipment(), 0, 0, 1, 2);
    grid->addWidget(buildSampling(), 1, 0);
    grid->addWidget(buildDepth(), 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
}

QWidget* SetupSampling::buildEquipment() {
    auto* const card = new Card("Equipment of the next run");
    tool_->setObjectName("lbcurrenttool");
    winch_->setObjectName("lbcurrentwinchlist");
    currentWinch_->setObjectName("lbcurrentwinch");
    for (QComboBox* const list : {tool_, winch_})
        connect(list, &QComboBox::activated, this, [this] { loadCurrent(); });
    auto* const row = new QGridLayout;
    row->setHorizontalSpacing(measure::wide);
    row->addWidget(new Field("To&ol", tool_), 0, 0);
    row->addWidget(new Field("Winc&h", winch_), 0, 1);
    row->setColumnStretch(0, 1);
    row->setColumnStretch(1, 1);
    card->body()->addLayout(row);
    card->body()->addWidget(currentWinch_);
    return card;
}

QWidget* SetupSampling::buildSampling() {
    auto* const card = new Card("Sampling");
    method_ = addOptions(*card->body(), "Sample by", {{"opttime", "&Time"}, {"optdepth", "D&epth"}});
    interval_ = numberField("txtsamplinginterval", "Sampling inter&val", "seconds", {});
    interval_->setCheck(
        [this] { return qt(intervalProblem(sampling(), plain(editOf(*interval_)->text()))); });
    card->body()->addWidget(interval_);
    direction_ = addOptions(*card->body(), "Logging direction", {{"optdown", "Do&wn"}, {"optup", "U&p"}});
    card->body()->addStretch(1);
    allow_ = new QCheckBox("Allow &logging (the button Acquire)");
    allow_->setObjectName("optallowlogging");
    card->body()->addWidget(allow_);
    connect(method_, &QButtonGroup::idClicked, this, [this] {
        showUnits();
        interval_->validate(); // seconds are seldom good centimetres
    });
    connect(editOf(*interval_), &QLineEdit::textChanged, this, [this] { showUnits(); });
    return card;
}

QWidget* SetupSampling::buildDepth() {
    auto* const card = new Card("Depth");
    unit_ = addOptions(*card->body(), "Depth units", {{"optmetres", "&Metres"}, {"optfeet", "&Feet"}});
    scale_ = numberField("txtwinchscalefactor", "Winch scale factor", {},
                         "1.0 leaves the winch's depth counts as they are.");
    scale_->setCheck(numberBetween(editOf(*scale_), 0.0001, 10'000));
    marker_ = numberField("txtmagneticmarker", "Magnetic marker", {}, "0: no depth marks.");
    marker_->setCheck([this] { return qt(wholeNumberProblem(plain(editOf(*marker_)->text()), 0, 65'535)); });
    declination_ = numberField("txtdeclination", "Magnetic declination", "degrees", "East is positive.");
    declination_->setCheck(numberBetween(editOf(*declination_), -360, 360));
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addWidget(marker_, 1, Qt::AlignTop);
    row->addWidget(declination_, 1, Qt::AlignTop);
    card->body()->addWidget(scale_);
    card->body()->addLayout(row);
    card->body()->addStretch(1);
    connect(unit_, &QButtonGroup::idClicked, this, [this] { showUnits(); });
    return card;
}

Field* SetupSampling::numberField(const char* name, const QString& title, const QString& unit,
                                  const QString& hint) {
    auto* const edit = lineEdit(name);
    edit->setAlignment(Qt::AlignRight);
    return new Field(title, edit, unit, hint);
}

Sampling SetupSampling::sampling() const {
    return method_->checkedId() == second ? Sampling::depth : Sampling::time;
}

DepthUnits SetupSampling::units() const {
    return unit_->checkedId() == second ? DepthUnits::feet : DepthUnits::metres;
}

void SetupSampling::load() {
    const Settings& settings = modules_.settings;
    fillLists({settings.currentTool, settings.currentToolSerial},
              {settings.currentWinch, settings.currentWinchSerial});
    method_->button(settings.sampling() == Sampling::depth ? second : first)->setChecked(true);
    direction_->button(settings.direction() == Direction::up ? second : first)->setChecked(true);
    unit_->button(settings.units() == DepthUnits::feet ? second : first)->setChecked(true);
    editOf(*interval_)->setText(qt(settings.samplingInterval.text()));
    editOf(*scale_)->setText(qt(settings.winchScaleFactor.text()));
    editOf(*marker_)->setText(QString::number(settings.magneticMarker));
    editOf(*declination_)->setText(qt(settings.declination.text()));
    allow_->setChecked(settings.allowLogging != 0);
    showUnits();
}

/// Who owns but one tool means that one.
void SetupSampling::reloadEquipment() {
    fillLists(choiceIn(*tool_), choiceIn(*winch_));
    for (QComboBox* const list : {tool_, winch_}) {
        if (list->currentIndex() == 0 && list->count() == 2) list->setCurrentIndex(1);
    }
}

void SetupSampling::fillLists(const EquipmentChoice& tool, const EquipmentChoice& winch) {
    fillChoices(*tool_, modules_.equipment.ToolWinchData_loadusertoollist().rows, tool);
    fillChoices(*winch_, modules_.equipment.ToolWinchData_loaduserwinchlist().rows, winch);
    loadCurrent();
}

/// The unit beside the interval follows the method and the depth unit.
void SetupSampling::showUnits() {
    interval_->setUnit(qt(intervalUnitLabel(samplingText(sampling()), units())));
    const QString words = qt(intervalInWords(sampling(), units(), plain(editOf(*interval_)->text())));
    interval_->setHint(words.isEmpty() ? QString() : "Counts cable: " + words + ".");
}

bool SetupSampling::store() {
    if (!validateAll({interval_, scale_, marker_, declination_})) return false;
    Settings& settings = modules_.settings;
    settings.samplingMethod = samplingText(sampling());
    settings.logDirection =
        directionText(direction_->checkedId() == second ? Direction::up : Direction::down);
    settings.setUnits(units());
    settings.samplingInterval = NumberText(trimmed(plain(editOf(*interval_)->text())));
    settings.winchScaleFactor = NumberText(trimmed(plain(editOf(*scale_)->text())));
    settings.magneticMarker = editOf(*marker_)->text().trimmed().toInt();
    settings.declination = NumberText(trimmed(plain(editOf(*declination_)->text())));
    if (allow_->isChecked() != (settings.allowLogging != 0))
        settings.allowLogging = allow_->isChecked() ? 1 : 0;
    storeEquipment();
    loadCurrent();
    return true;
}

void SetupSampling::cancel() {
    const Settings& settings = modules_.settings;
    fillLists({settings.currentTool, settings.currentToolSerial},
              {settings.currentWinch, settings.currentWinchSerial});
}

void SetupSampling::storeEquipment() {
    Settings& settings = modules_.settings;
    const EquipmentChoice tool = choiceIn(*tool_);
    const EquipmentChoice winch = choiceIn(*winch_);
    settings.currentTool = tool.code;
    settings.currentToolSerial = tool.serialNumber;
    settings.currentWinch = winch.code;
    settings.currentWinchSerial = winch.serialNumber;
}

/// The records of the run follow at once; the tool keeps the mode that it is in.
void SetupSampling::loadCurrent() {
    ToolWinchData& equipment = modules_.equipment;
    currentWinch_->setText(qt(equipment.ToolWinchData_loadcurrentttoolwinch(
        choiceIn(*tool_), choiceIn(*winch_), equipment.currentTool().mode)));
}

} // namespace tarvik
