#include "screens/run_panel.h"

#include "base/text.h"
#include "screens/qt_text.h"
#include "screens/stop_key.h"
#include "screens/styles.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace tarvik {

namespace {

constexpr double deepest = 83'886; // metres: how far the depth counter of an LCU reaches
constexpr const char* startTip = "Prepares the tool and starts logging (F9)";
constexpr const char* noLcuTip = "A run needs an LCU: Acquire (F7) searches for it";

QPushButton* button(const QString& objectName, const QString& text, const QString& tip) {
    auto* const made = new QPushButton(text);
    made->setObjectName(objectName);
    made->setToolTip(tip);
    return made;
}

QHBoxLayout* row() {
    auto* const made = new QHBoxLayout;
    made->setSpacing(8);
    return made;
}

} // namespace

RunPanel::RunPanel(RunPanelActions actions)
    : actions_(std::move(actions)),
      hole_(roleLabel("head")),
      order_(new QLabel),
      file_(roleLabel("quiet")),
      top_(lineEdit("txttop")),
      bottom_(lineEdit("txtbottom")),
      endDistance_(lineEdit("txtenddistance")),
      depthToSet_(lineEdit("txtsetdepth")),
      setDepth_(
          button("comsetdepth", "Set &depth", "Sets the winch depth in the LCU. The winch must stand.")),
      equipment_(button("comequipment", "&Change\u2026", "Tool, winch and sampling of the next run")),
      record_(new QCheckBox),
      start_(button("comstartlogging", "St&art", startTip)),
      stop_(button("comstoplogging", "St&op", "Ends the run and powers the tool down (F10)")) {
    setProperty("card", true);
    hole_->setObjectName("lbhole");
    hole_->setWordWrap(true);
    order_->setObjectName("lborder");
    order_->setWordWrap(true);
    file_->setObjectName("lbfile");
    file_->setWordWrap(true);
    record_->setObjectName("chkrecord");
    start_->setProperty("primary", true);
    start_->setShortcut(Qt::Key_F9);
    pressFromAnywhere(*stop_, Qt::Key_F10);
    start_->setMinimumHeight(36);
    stop_->setMinimumHeight(36);
    connect(record_, &QCheckBox::toggled, this,
            [this](bool on) { record_->setText(on ? "&Record data - ON" : "&Record data - OFF"); });
    connect(start_, &QPushButton::clicked, this, [this] { actions_.start(); });
    connect(stop_, &QPushButton::clicked, this, [this] { actions_.stop(); });
    connect(equipment_, &QPushButton::clicked, this, [this] { actions_.chooseEquipment(); });

    // The fields scroll on a small screen; the switch and the buttons always stay in reach.
    auto* const fields = new QWidget;
    auto* const column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    auto* const head = row();
    head->addWidget(hole_, 1);
    head->addWidget(equipment_, 0, Qt::AlignTop);
    column->addLayout(head);
    column->addWidget(order_);
    column->addWidget(file_);
    column->addWidget(makeLimits());
    column->addWidget(makeDepthSetting());
    column->addStretch(1);
    auto* const scrolled = scrolled_ = new QScrollArea;
    scrolled->setWidget(fields);
    scrolled->setWidgetResizable(true);
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setFocusPolicy(Qt::NoFocus); // it follows the focus within
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setMinimumHeight(1); // the first to give way in a low window
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(16, 8, 16, 8);
    whole->setSpacing(8);
    whole->addWidget(scrolled, 1);
    whole->addWidget(record_);
    auto* const buttons = row();
    buttons->addWidget(start_, 1);
    buttons->addWidget(stop_, 1);
    whole->addLayout(buttons);
    showFile({});
    setRecording(true);
    setUnits(DepthUnits::metres);
    setState(State::noLcu);
}

QWidget* RunPanel::makeLimits() {
    auto* const box = new QWidget;
    auto* const fields = new QHBoxLayout(box);
    fields->setContentsMargins(0, 0, 0, 0);
    fields->setSpacing(8);
    const std::pair<const char*, QLineEdit*> named[]{
        {"&Top", top_}, {"&Bottom", bottom_}, {"To &end", endDistance_}};
    for (const auto& [title, edit] : named) {
        auto* const field = new Field(title, edit);
        field->setCheck(numberBetween(edit, edit == endDistance_ ? 0 : -deepest, deepest, true));
        limitFields_.push_back(field);
        fields->addWidget(field, 1, Qt::AlignTop); // a message under one moves no other
    }
    limitFields_[0]->setToolTip("Scans above it are not kept. Empty: no limit.");
    limitFields_[1]->setToolTip("Scans below it are not kept. Empty: no limit.");
    limitFields_[2]->setToolTip("The run ends when less than this is left to the end of the interval.");
    return box;
}

QWidget* RunPanel::makeDepthSetting() {
    depthField_ = new Field("Winch de&pth", depthToSet_);
    depthField_->setCheck(numberBetween(depthToSet_, -deepest, deepest, true));
    depthField_->addBeside(setDepth_);
    const auto set = [this] {
        const auto metres = depthField_->validate() ? metresIn(*depthToSet_) : std::nullopt;
        if (metres) actions_.setDepth(*metres);
    };
    connect(setDepth_, &QPushButton::clicked, this, set);
    connect(depthToSet_, &QLineEdit::returnPressed, this, set);
    return depthField_;
}

/// What stands in the fields keeps its meaning.
void RunPanel::setUnits(DepthUnits units) {
    for (QLineEdit* const edit : {top_, bottom_, endDistance_, depthToSet_}) {
        const auto metres = units == units_ ? std::nullopt : metresIn(*edit);
        if (metres)
            edit->setText(QString::number(std::round(fromMetres(*metres, units) * 100) / 100, 'g', 9));
    }
    units_ = units;
    const QString unit = units == DepthUnits::metres ? "m" : "ft";
    depthField_->setUnit(unit);
    const char* const names[]{"&Top", "&Bottom", "To &end"};
    for (std::size_t i = 0; i < limitFields_.size(); ++i) {
        limitFields_[i]->setTitle(QString("%1, %2").arg(names[i], unit));
    }
}

void RunPanel::showOrder(const QString& hole, const QString& tool, const QString& winch,
                         const QString& sampling) {
    holeText_ = hole;
    orderTexts_ = {tool, winch, sampling};
    writeOrder();
}

void RunPanel::setLow(bool low) {
    low_ = low;
    hole_->setWordWrap(!low);
    hole_->setMinimumWidth(low ? 1 : 0); // cut before it makes the panel wider
    for (QLayout* const column : {scrolled_->widget()->layout(), layout()}) column->setSpacing(low ? 4 : 8);
    layout()->setContentsMargins(16, low ? 4 : 8, 16, low ? 4 : 8);
    for (QPushButton* const button : {start_, stop_}) button->setMinimumHeight(low ? 30 : 36);
    writeOrder();
}

void RunPanel::writeOrder() {
    const QString whole = orderTexts_.join("\n");
    hole_->setText(low_ ? holeText_.section(" / ", -1) : holeText_);
    order_->setText(low_ ? orderTexts_.value(0) : whole);
    hole_->setToolTip(low_ ? holeText_ : QString());
    order_->setToolTip(low_ ? whole : QString());
    // With little height one line: what will be logged, or into which file.
    order_->setVisible(!low_ || idle_);
    file_->setVisible(!file_->text().isEmpty() && (!low_ || !idle_));
}

void RunPanel::showFile(const QString& file) {
    file_->setText(file);
    writeOrder();
}

void RunPanel::clearDepthToSet() {
    depthToSet_->clear();
}

void RunPanel::lockRecording() {
    record_->setEnabled(false);
    record_->setToolTip("The run was started without a file. Stop it, switch recording on and start again.");
}

void RunPanel::setState(State state) {
    const bool idle = idle_ = state == State::ready || state == State::noLcu;
    writeOrder();
    start_->setEnabled(state == State::ready);
    start_->setToolTip(state == State::noLcu ? noLcuTip : startTip);
    stop_->setEnabled(state == State::running);
    stop_->setText(state == State::stopping ? "Stopping\u2026" : "St&op");
    setDepth_->setEnabled(state == State::ready);
    equipment_->setEnabled(idle);
    for (QLineEdit* const edit : {top_, bottom_, endDistance_, depthToSet_}) edit->setEnabled(idle);
    if (idle) {
        record_->setEnabled(true);
        record_->setToolTip({});
    }
    if (!idle) scrolled_->verticalScrollBar()->setValue(0); // the hole, not the fields that are locked
}

std::optional<RunLimits> RunPanel::limits() {
    if (!validateAll(limitFields_)) return std::nullopt;
    return RunLimits{.top = metresIn(*top_),
                     .bottom = metresIn(*bottom_),
                     .endDistance = metresIn(*endDistance_).value_or(0)};
}

bool RunPanel::recording() const {
    return record_->isChecked();
}

void RunPanel::setRecording(bool on) {
    record_->setChecked(!on); // so that the text follows in any case
    record_->setChecked(on);
}

std::optional<double> RunPanel::metresIn(const QLineEdit& edit) const {
    const auto number = parseNumber(plain(edit.text()));
    if (!number) return std::nullopt;
    return toMetres(*number, units_);
}

} // namespace tarvik
