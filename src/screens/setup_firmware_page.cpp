#include "screens/setup_firmware_page.h"

#include "lcu/link_words.h"
#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

namespace tarvik {

SetupFirmwarePage::SetupFirmwarePage(const SetupModules& modules)
    : SetupPage("pagefirmware", "Firmware", "What runs inside the LCU and inside the tool on the cable."),
      modules_(modules),
      lcu_(new QLabel),
      tool_(new QLabel),
      result_(wrappingLabel({})),
      read_(new QPushButton("&Read versions")) {
    lcu_->setObjectName("lblcufirmware");
    tool_->setObjectName("lbtoolfirmware");
    result_->setObjectName("lbfirmwareresult");
    read_->setObjectName("comreadfirmware");
    read_->setAutoDefault(false);
    connect(read_, &QPushButton::clicked, this, [this] { read(); });

    auto* const card = new Card("Versions");
    card->body()->addLayout(buildVersions());
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(read_);
    buttons->addStretch(1);
    card->body()->addLayout(buttons);
    card->body()->addWidget(result_);
    card->body()->addWidget(
        wrappingLabel("A tool that is not on the cable does not answer. Both versions are also written into "
                      "the status log at "
                      "the start of every run. Tarvik reads them; it does not load new firmware.",
                      "quiet"));
    body()->addWidget(card);
    body()->addStretch(1);
}

QLayout* SetupFirmwarePage::buildVersions() {
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(measure::margin);
    grid->setVerticalSpacing(measure::gap);
    int row = 0;
    for (const auto& [title, value] : {std::pair("LCU firmware", lcu_), std::pair("Tool firmware", tool_)}) {
        value->setProperty("role", "head");
        value->setText("not read yet");
        grid->addWidget(wrappingLabel(title, "quiet"), row, 0);
        grid->addWidget(value, row++, 1);
    }
    grid->setColumnMinimumWidth(0, 140);
    grid->setColumnStretch(1, 1);
    return grid;
}

void SetupFirmwarePage::load() {
    const std::string why = whyNotToAsk(modules_.link);
    read_->setEnabled(why.empty());
    tell(*result_, qt(why), "quiet");
    if (!modules_.link.firmware.empty()) lcu_->setText(qt(modules_.link.firmware));
}

void SetupFirmwarePage::read() {
    const std::string why = whyNotToAsk(modules_.link);
    tell(*result_, qt(why), "warning");
    if (!why.empty()) return;
    read_->setEnabled(false);
    const FirmwareWords words = readFirmware(modules_.lcu);
    read_->setEnabled(true);
    lcu_->setText(qt(words.lcu));
    tool_->setText(qt(words.tool));
}

} // namespace tarvik
