#include "screens/setup_system_page.h"

#include "lcu/link_words.h"
#include "screens/card.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvik {

namespace {

struct ValueName {
    const char* objectName;
    const char* title;
};

constexpr std::array<ValueName, 5> valueNames{{{"lblinkport", "Port"},
                                               {"lblinkmodel", "LCU"},
                                               {"lblinkspeed", "Speed"},
                                               {"lblinkfirmware", "Firmware"},
                                               {"lblinkstatus", "Status"}}};

} // namespace

SetupSystemPage::SetupSystemPage(const SetupModules& modules)
    : SetupPage("pagesystemtest", "System test", "Is the LCU there, on which port, and does it answer?"),
      modules_(modules),
      tabs_(new QTabWidget),
      machine_(new SetupMachine(modules)),
      ask_(new QPushButton("As&k for the status")),
      result_(wrappingLabel({})) {
    tabs_->setObjectName("lbsystemtabs");
    QVBoxLayout* const link = addTab(*tabs_, "&LCU link");
    link->addWidget(buildLink());
    link->addWidget(buildSearch());
    link->addStretch(1);
    addTab(*tabs_, "&Ports and drives")->addWidget(machine_);
    body()->addWidget(tabs_, 1);
}

QWidget* SetupSystemPage::buildLink() {
    auto* const card = new Card("Link to the LCU");
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(measure::margin);
    grid->setVerticalSpacing(measure::gap);
    for (std::size_t i = 0; i < values_.size(); ++i) {
        values_[i] = new QLabel;
        values_[i]->setObjectName(valueNames[i].objectName);
        const int row = static_cast<int>(i);
        grid->addWidget(wrappingLabel(valueNames[i].title, "quiet"), row, 0);
        grid->addWidget(values_[i], row, 1);
    }
    grid->setColumnMinimumWidth(0, 120);
    grid->setColumnStretch(1, 1);
    card->body()->addLayout(grid);

    ask_->setObjectName("comstatus");
    ask_->setAutoDefault(false);
    ask_->setToolTip("Sends the status command and shows the answer.");
    result_->setObjectName("lbstatusresult");
    connect(ask_, &QPushButton::clicked, this, [this] { askForStatus(); });
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(ask_);
    buttons->addStretch(1);
    card->body()->addLayout(buttons);
    card->body()->addWidget(result_);
    return card;
}

QWidget* SetupSystemPage::buildSearch() {
    auto* const card = new Card("Search for the LCU");
    ports_ = addOptions(*card->body(), "Ports that the search tries",
                        {{"optcom12", "COM1, then COM2"},
                         {"optcom34", "COM3, then COM4"},
                         {"optcom1", "COM&1"},
                         {"optcom2", "COM&2"},
                         {"optcom3", "COM&3"},
                         {"optcom4", "COM&4"}});
    card->body()->addWidget(wrappingLabel(
        "Each port is tried at 9600 and at 115200 baud, when Acquire or Calib/test is pressed.", "quiet"));
    return card;
}

void SetupSystemPage::load() {
    const auto* const choice =
        std::ranges::find(lcuCommsChoices, lcuCommsOrDefault(modules_.settings.lcuComms));
    ports_->button(static_cast<int>(choice - lcuCommsChoices.begin()))->setChecked(true);
    machine_->load();
    showLink();
    const std::string why = whyNotToAsk(modules_.link);
    ask_->setEnabled(why.empty());
    tell(*result_, qt(why), "quiet");
}

void SetupSystemPage::showLink() {
    const LinkWords words = linkWords(modules_.link);
    const std::array texts{&words.port, &words.model, &words.speed, &words.firmware, &words.status};
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i]->setText(qt(*texts[i]));
}

void SetupSystemPage::askForStatus() {
    const std::string why = whyNotToAsk(modules_.link);
    tell(*result_, qt(why), "warning");
    if (!why.empty()) return;
    ask_->setEnabled(false);
    const LinkResult result = modules_.lcu.LCU_Status();
    ask_->setEnabled(true);
    tell(*result_, qt(statusOutcome(result, modules_.link)), result == LinkResult::good ? "good" : "bad");
    showLink();
}

bool SetupSystemPage::store() {
    modules_.settings.lcuComms = lcuCommsChoices.at(static_cast<std::size_t>(ports_->checkedId()));
    if (machine_->store()) return true;
    tabs_->setCurrentIndex(1);
    return false;
}

void SetupSystemPage::selectSubPage(int subPage) {
    showTab(*tabs_, subPage);
}

void SetupSystemPage::cancel() {
    machine_->cancel();
}

} // namespace tarvik
