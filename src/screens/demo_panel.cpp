#include "screens/demo_panel.h"

#include "screens/field.h"
#include "screens/pace_words.h"
#include "screens/stop_key.h"
#include "screens/styles.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

DemoPanel::DemoPanel(DemoPanelActions actions)
    : actions_(std::move(actions)),
      run_(new QLabel),
      choose_(button("comchoosedemo", "&Change\u2026", "Another run, another pace")),
      pace_(new QComboBox),
      position_(new QProgressBar),
      positionWords_(roleLabel("quiet")),
      acts_(new QBoxLayout(QBoxLayout::TopToBottom)),
      start_(button("comstartdemo", "&Start", "Plays the run from its beginning (F9)")),
      pause_(button("compausedemo", "&Pause", "Halts the run where it is (F11)")),
      stop_(button("comstopdemo", "S&top", "Ends the demonstration (F10)")) {
    setProperty("card", true);
    setObjectName("demopanel");
    run_->setObjectName("lbdemorun");
    run_->setWordWrap(true);
    pace_->setObjectName("cbopace");
    for (const PaceWords& words : paceWords) pace_->addItem(words.text);
    position_->setObjectName("pgplayback");
    position_->setTextVisible(false);
    positionWords_->setObjectName("lbplayback");
    position_->setAccessibleName("Scans played");
    start_->setProperty("primary", true);
    start_->setShortcut(Qt::Key_F9);
    pressFromAnywhere(*stop_, Qt::Key_F10);
    connect(start_, &QPushButton::clicked, this, [this] { actions_.start(); });
    connect(pause_, &QPushButton::clicked, this, [this] { actions_.pauseOrGoOn(); });
    connect(stop_, &QPushButton::clicked, this, [this] { actions_.stop(); });
    connect(choose_, &QPushButton::clicked, this, [this] { actions_.chooseRun(); });
    connect(pace_, &QComboBox::activated, this, [this](int place) { actions_.setPace(paceAt(place)); });

    auto* const column = new QVBoxLayout(this);
    auto* const head = new QHBoxLayout;
    head->setSpacing(8);
    head->addWidget(run_, 1);
    head->addWidget(choose_, 0, Qt::AlignTop);
    column->addLayout(head);
    column->addWidget(new Field("Pace", pace_));
    column->addWidget(position_);
    column->addWidget(positionWords_);
    column->addStretch(1);
    column->addLayout(acts_);
    acts_->addWidget(start_, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(pause_, 1);
    buttons->addWidget(stop_, 1);
    acts_->addLayout(buttons, 1);
    setLow(false);
    showRun({}, {});
    showPosition(0, 0);
    setState(State::noRun);
}

void DemoPanel::setLow(bool low) {
    layout()->setContentsMargins(16, low ? 8 : 12, 16, low ? 8 : 12);
    layout()->setSpacing(low ? 6 : 12);
    acts_->setDirection(low ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    acts_->setSpacing(low ? 8 : 12);
    for (QPushButton* const button : {start_, pause_, stop_}) button->setMinimumHeight(low ? 30 : 36);
}

QPushButton* DemoPanel::button(const char* objectName, const char* text, const char* tip) {
    auto* const made = new QPushButton(text);
    made->setObjectName(objectName);
    made->setToolTip(tip);
    return made;
}

void DemoPanel::showRun(const QString& name, const QString& folder) {
    run_->setText(name.isEmpty() ? QString("<b>No run chosen</b>")
                                 : QString("<b>%1</b>").arg(name.toHtmlEscaped()));
    run_->setToolTip(folder);
}

void DemoPanel::showPace(PlaybackPace pace) {
    pace_->setCurrentIndex(placeOf(pace));
}

void DemoPanel::showPosition(std::size_t played, std::size_t scans) {
    position_->setVisible(scans > 0);
    position_->setRange(0, static_cast<int>(scans));
    position_->setValue(static_cast<int>(played));
    positionWords_->setVisible(scans > 0);
    positionWords_->setText(QString("%1 of %2 scans").arg(played).arg(scans));
}

void DemoPanel::setState(State state) {
    const bool idle = state == State::noRun || state == State::ready;
    choose_->setEnabled(idle);
    choose_->setText(state == State::noRun ? "&Choose\u2026" : "&Change\u2026");
    start_->setEnabled(state == State::ready);
    pause_->setEnabled(state == State::playing || state == State::paused);
    pause_->setText(state == State::paused ? "&Go on" : "&Pause");
    pause_->setShortcut(Qt::Key_F11); // setting the text takes it away
    stop_->setEnabled(state == State::playing || state == State::paused);
    stop_->setText(state == State::stopping ? "Stopping\u2026" : "S&top");
}

} // namespace tarvik
