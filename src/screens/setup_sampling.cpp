#include "screens/setup_sampling.h"

#include "app/sampling_checks.h"
#include "base/text.h"
#include "screens/card.h"
#include "screens/equipment_choice_list.h"
#include "screens/field.h"
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
    Card* const depth = buildDepth();
    auto* const units = new QVBoxLayout; // above the numbers of the depth
    depth->body()->insertLayout(1, units);
    grid->addWidget(buildEquipment(), 0, 0, 1, 2);
    grid->addWidget(buildSampling(*units), 1, 0);
    grid->addWidget(depth, 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    // One card after the other, although the units come from the fields of the sampling.
    QWidget* before = sampling_->interval()->editor();
    for (const char* const name : {"optallowlogging", "optmetres", "optfeet", "txtwinchscalefactor",
                                   "txtmagneticmarker", "txtdeclination"}) {
        auto* const next = findChild<QWidget*>(name);
        setTabOrder(before, next);
        before = next;
    }
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

QWidget* SetupSampling::buildSampling(QBoxLayout& unitPlace) {
    auto* const card = new Card("Sampling");
    QVBoxLayout& column = *card->body();
    sampling_ = std::make_unique<SamplingFields>(
        SamplingPlaces{.method = column, .interval = column, .direction = column, .units = unitPlace});
    column.addStretch(1);
    allow_ = new QCheckBox("Allow &logging (the button Acquire)");
    allow_->setObjectName("optallowlogging");
    column.addWidget(allow_);
    return card;
}

Card* SetupSampling::buildDepth() {
    auto* const card = new Card("Depth");
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
    return card;
}

Field* SetupSampling::numberField(const char* name, const QString& title, const QString& unit,
                                  const QString& hint) {
    auto* const edit = lineEdit(name);
    edit->setAlignment(Qt::AlignRight);
    return new Field(title, edit, unit, hint);
}

void SetupSampling::load() {
    const Settings& settings = modules_.settings;
    fillLists({settings.currentTool, settings.currentToolSerial},
              {settings.currentWinch, settings.currentWinchSerial});
    sampling_->load(settings);
    editOf(*scale_)->setText(qt(settings.winchScaleFactor.text()));
    editOf(*marker_)->setText(QString::number(settings.magneticMarker));
    editOf(*declination_)->setText(qt(settings.declination.text()));
    allow_->setChecked(settings.allowLogging != 0);
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

bool SetupSampling::store() {
    if (!validateAll({sampling_->interval(), scale_, marker_, declination_})) return false;
    Settings& settings = modules_.settings;
    sampling_->store(settings);
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

/// The records of the run follow at once, in the mode in which the tool was used last.
void SetupSampling::loadCurrent() {
    ToolWinchData& equipment = modules_.equipment;
    currentWinch_->setText(qt(equipment.ToolWinchData_loadcurrentttoolwinch(
        choiceIn(*tool_), choiceIn(*winch_), modeOf(modules_.memory, choiceIn(*tool_)))));
}

} // namespace tarvik
