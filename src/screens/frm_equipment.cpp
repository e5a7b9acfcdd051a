#include "screens/frm_equipment.h"

#include "base/text.h"
#include "equipment/channel_states.h"
#include "lcu/runs_in_hole.h"
#include "lcu/tool_rules.h"
#include "screens/card.h"
#include "screens/equipment_choice_list.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <tuple>

namespace tarvik {

namespace {

constexpr int first = 0; // mode 1
constexpr int second = 1;

QLabel* wrapping(const char* objectName, const char* role) {
    auto* const label = roleLabel(role);
    label->setObjectName(objectName);
    label->setWordWrap(true);
    return label;
}

/// The upper card takes what the lower one leaves.
QVBoxLayout* column(QWidget* upper, QWidget* lower) {
    auto* const cards = new QVBoxLayout;
    cards->setSpacing(measure::wide);
    cards->addWidget(upper, 1);
    cards->addWidget(lower);
    return cards;
}

} // namespace

frmEquipment::frmEquipment(const EquipmentModules& modules, QWidget* parent)
    : ScreenDialog("frmEquipment", "Equipment of the next run", modules.memory, parent),
      modules_(modules),
      tool_(new QComboBox),
      winch_(new QComboBox),
      toolField_(new Field("Tool", tool_)),
      winchField_(new Field("Winch", winch_)),
      deviation_(new QWidget),
      declination_(wrapping("lbdeclination", "")),
      channels_(new QTableWidget(0, 4)),
      channelsVerdict_(wrapping("lbchannelsverdict", "good")),
      runs_(wrapping("lbruns", "")),
      range_(wrapping("lbdepthrange", "")) {
    setModal(true);
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addLayout(column(buildEquipment(), buildSampling()), 2);
    row->addLayout(column(buildChannels(), buildHole()), 3);
    body()->addLayout(row, 1);
    buildButtons();
    load();
    setMinimumSize(880, 600);
    resize(1060, 680);
    tool_->setFocus();
}

QWidget* frmEquipment::buildEquipment() {
    auto* const card = new Card("Tool and winch");
    tool_->setObjectName("lbtool");
    winch_->setObjectName("lbwinch");
    toolField_->setCheck([this] { return tool_->currentIndex() > 0 ? QString() : "Choose a tool."; });
    winchField_->setCheck([this] { return winch_->currentIndex() > 0 ? QString() : "Choose a winch."; });
    card->body()->addWidget(toolField_);
    mode_ = addOptions(*card->body(), "Tool mode", {{"optmode1", "Mode 1"}, {"optmode2", "Mode 2"}});
    card->body()->addWidget(winchField_);
    card->body()->addStretch(1);
    connect(tool_, &QComboBox::currentIndexChanged, this, [this] { recallMode(); });
    connect(winch_, &QComboBox::currentIndexChanged, this, [this] { winchField_->validate(); });
    connect(mode_, &QButtonGroup::idClicked, this, [this] { toolChosen(); });
    return card;
}

QWidget* frmEquipment::buildSampling() {
    auto* const card = new Card("Sampling");
    auto* const grid = new QGridLayout;
    grid->setSpacing(measure::wide);
    const auto cell = [&](int row, int column) {
        auto* const layout = new QVBoxLayout;
        grid->addLayout(layout, row, column, Qt::AlignTop);
        grid->setColumnStretch(column, 1);
        return layout;
    };
    card->body()->addLayout(grid);
    sampling_ = std::make_unique<SamplingFields>(SamplingPlaces{
        .method = *cell(0, 0), .interval = *cell(1, 1), .direction = *cell(0, 1), .units = *cell(1, 0)});
    buildDeviation(*card->body());
    return card;
}

void frmEquipment::buildDeviation(QBoxLayout& layout) {
    auto* const row = new QHBoxLayout(deviation_);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const change = new QPushButton("Declinatio&n\u2026");
    change->setObjectName("comdeviation");
    change->setAutoDefault(false);
    row->addWidget(declination_, 1);
    row->addWidget(change);
    layout.addWidget(deviation_);
    connect(change, &QPushButton::clicked, this, [this] {
        if (modules_.setDeviation) modules_.setDeviation();
        showDeclination();
    });
}

QWidget* frmEquipment::buildChannels() {
    auto* const card = new Card("Channels and their calibration");
    channels_->setObjectName("channels");
    channels_->setAccessibleName("Channels and their calibration");
    channels_->setHorizontalHeaderLabels({"No.", "Channel", "Unit", "Calibration"});
    channels_->verticalHeader()->hide();
    channels_->setSelectionMode(QAbstractItemView::NoSelection);
    channels_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    channels_->setFocusPolicy(Qt::NoFocus);
    channels_->setShowGrid(false);
    channels_->setAlternatingRowColors(true);
    channels_->setStyleSheet("QHeaderView::section { padding: 6px 4px; }"); // heads begin where cells begin
    channels_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    channels_->horizontalHeader()->setStretchLastSection(true);
    connect(channels_->horizontalHeader(), &QHeaderView::sectionResized, channels_, [this] { fitRows(); });
    card->body()->addWidget(channelsVerdict_);
    card->body()->addWidget(channels_, 1);
    return card;
}

QWidget* frmEquipment::buildHole() {
    const Settings& settings = modules_.settings;
    auto* const card = new Card("In the hole " + qt(trimmed(settings.hole.holeId)));
    card->body()->addWidget(roleLabel("quiet", "Project " + qt(trimmed(settings.currentProject))));
    card->body()->addWidget(runs_);
    card->body()->addWidget(range_);
    card->body()->addStretch(1);
    return card;
}

void frmEquipment::buildButtons() {
    QPushButton* const add = addSideButton("comaddtool", "&Add a tool\u2026");
    add->setToolTip("Opens the set-up with your tools and winches");
    connect(add, &QPushButton::clicked, this, [this] { addToolClicked(); });
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, [this] { reject(); });
    connect(addPrimaryButton("comuseequipment", "Use this equipment"), &QPushButton::clicked, this,
            [this] { use(); });
}

void frmEquipment::load() {
    const Settings& settings = modules_.settings;
    sampling_->load(settings);
    fillLists({settings.currentTool, settings.currentToolSerial},
              {settings.currentWinch, settings.currentWinchSerial});
    showDeclination();
}

void frmEquipment::fillLists(const EquipmentChoice& tool, const EquipmentChoice& winch) {
    fillChoices(*tool_, modules_.equipment.ToolWinchData_loadusertoollist().rows, tool);
    fillChoices(*winch_, modules_.equipment.ToolWinchData_loaduserwinchlist().rows, winch);
    recallMode();
}

/// What was saved there is newer than what stands here.
void frmEquipment::addToolClicked() {
    const Settings& now = modules_.settings;
    const Settings before = now;
    if (modules_.addTool) modules_.addTool();
    const auto chosen = [](const Settings& s) {
        return std::tie(s.currentTool, s.currentToolSerial, s.currentWinch, s.currentWinchSerial);
    };
    const auto sampled = [](const Settings& s) {
        return std::tie(s.samplingMethod, s.samplingInterval, s.logDirection, s.depthUnits);
    };
    if (sampled(now) != sampled(before)) sampling_->load(now);
    if (chosen(now) == chosen(before)) return fillLists(choiceIn(*tool_), choiceIn(*winch_));
    fillLists({now.currentTool, now.currentToolSerial}, {now.currentWinch, now.currentWinchSerial});
}

int frmEquipment::mode() const {
    return mode_->checkedId() == second ? 2 : 1;
}

/// A tool comes back in the mode in which it was used last.
void frmEquipment::recallMode() {
    mode_->button(modeOf(modules_.memory, choiceIn(*tool_)) == 2 ? second : first)->setChecked(true);
    toolChosen();
}

/// A mode without channels cannot be chosen.
void frmEquipment::toolChosen() {
    CurrentTool tool = modules_.equipment.userTool(choiceIn(*tool_), mode());
    for (const int one : {1, 2}) {
        QAbstractButton* const option = mode_->button(one - 1);
        option->setText(qt(toolModeText(tool.record, one)));
        option->setEnabled(tool::channels(tool.record, one) > 0);
    }
    if (tool.channels() == 0 && tool::channels(tool.record, 3 - mode()) > 0) {
        mode_->button(3 - mode() - 1)->setChecked(true);
        tool.mode = mode();
    }
    if (tool_->currentIndex() > 0) toolField_->validate();
    deviation_->setVisible(toolRule(tool.record.get(tool::code)).deviation);
    showChannels(tool);
    showRuns(tool);
}

void frmEquipment::showChannels(const CurrentTool& tool) {
    const auto states = channelStates(tool);
    channels_->setRowCount(static_cast<int>(states.size()));
    for (int row = 0; row < channels_->rowCount(); ++row) {
        const ChannelState& state = states[static_cast<std::size_t>(row)];
        const QString words = (state.needsAttention ? "\u25b2 " : "") + qt(state.calibration);
        int column = 0;
        for (const QString& text : {QString::number(state.channel), qt(state.name), qt(state.unit), words}) {
            auto* const item = new QTableWidgetItem(text);
            item->setToolTip(text);
            channels_->setItem(row, column++, item);
        }
    }
    constexpr int air = 12;
    for (const int column : {0, 1, 2}) {
        channels_->resizeColumnToContents(column);
        channels_->setColumnWidth(column, channels_->columnWidth(column) + air);
    }
    fitRows(); // where a calibration came from takes two lines
    const bool sound = calibrationIsComplete(states);
    channelsVerdict_->setText((sound ? "" : "\u25b2  ") + qt(calibrationVerdict(states)));
    setRole(*channelsVerdict_, sound ? "good" : "warning");
}

void frmEquipment::fitRows() {
    constexpr int air = 8;
    channels_->resizeRowsToContents();
    for (int row = 0; row < channels_->rowCount(); ++row) {
        channels_->setRowHeight(row, channels_->rowHeight(row) + air);
    }
}

void frmEquipment::showRuns(const CurrentTool& tool) {
    const std::string code = tool.record.get(tool::code);
    const RunsInHole found =
        runsInHole(modules_.files, modules_.reader, modules_.settings, modules_.places, code);
    runs_->setText(found.runsText.empty() ? "The tool has not been run in this hole yet."
                                          : qt(found.runsText));
    if (code.empty()) runs_->setText("Choose a tool to see its runs.");
    range_->setText(qt(found.depthRangeText));
}

void frmEquipment::showDeclination() {
    declination_->setText("Magnetic declination " + qt(modules_.settings.declination.text()) + "\u00b0");
}

void frmEquipment::use() {
    if (!validateAll({toolField_, winchField_, sampling_->interval()})) return;
    Settings& settings = modules_.settings;
    const EquipmentChoice tool = choiceIn(*tool_);
    const EquipmentChoice winch = choiceIn(*winch_);
    settings.currentTool = tool.code;
    settings.currentToolSerial = tool.serialNumber;
    settings.currentWinch = winch.code;
    settings.currentWinchSerial = winch.serialNumber;
    sampling_->store(settings);
    keepMode(modules_.memory, tool, mode());
    modules_.store.Utilities_saveregsettings(settings);
    modules_.equipment.ToolWinchData_loadcurrentttoolwinch(tool, winch, mode());
    accept();
}

} // namespace tarvik
