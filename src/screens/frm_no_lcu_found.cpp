#include "screens/frm_no_lcu_found.h"

#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

QString portsText(int lcuComms) {
    if (lcuComms == 34) return "COM3 and COM4";
    if (lcuComms >= 1 && lcuComms <= 4) return QString("COM%1").arg(lcuComms);
    return "COM1 and COM2";
}

} // namespace

frmNoLCUFound::frmNoLCUFound(bool searched, NoLcuActions actions, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmNoLCUFound", "No LCU found", memory, parent),
      actions_(std::move(actions)),
      searchedPorts_(actions_.ports()),
      headline_(roleLabel("title")) {
    headline_->setObjectName("lbheadline");
    body()->addWidget(headline_);
    auto* const card = new Card;
    rows_ = new QVBoxLayout;
    rows_->setSpacing(measure::wide);
    card->body()->addLayout(rows_);
    body()->addWidget(card, 1);
    connect(addSideButton("comsetup", "Set up &ports\u2026"), &QPushButton::clicked, this,
            [this] { actions_.setUpPorts(); });
    close_ = addButton("comclose", "&Close");
    connect(close_, &QPushButton::clicked, this, [this] { reject(); });
    search_ = addPrimaryButton("comsearch", "&Search again");
    connect(search_, &QPushButton::clicked, this, [this] { searchAgain(); });
    showOutcome(searched);
    setMinimumWidth(560);
}

void frmNoLCUFound::showOutcome(bool searched) {
    while (QLayoutItem* const item = rows_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    search_->setText(searched ? "&Search again" : "&Search now");
    if (!searched) {
        headline_->setText("No search has been made");
        return addRow(
            {"The automatic search is off", "Search now on " + plain(portsText(actions_.ports())) +
                                                ", or switch the automatic search on under Setup."});
    }
    const bool cancelled = actions_.cancelled();
    headline_->setText(cancelled ? QString("The search was cancelled")
                                 : "No LCU answered on " + portsText(searchedPorts_));
    const std::vector<PortReport> tried = actions_.report();
    for (const PortReport& port : tried) addRow(port);
    if (tried.empty()) addRow({"No port was tried to its end", "Search again to find the LCU."});
    rows_->addWidget(roleLabel("quiet", "The event log says for each port what was received."));
}

void frmNoLCUFound::addRow(const PortReport& port) {
    auto* const row = new QWidget;
    auto* const column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* const what = roleLabel("head", qt(port.what));
    what->setObjectName("lbport");
    column->addWidget(what);
    auto* const remedy = new QLabel(qt(port.remedy));
    remedy->setObjectName("lbremedy");
    remedy->setTextFormat(Qt::PlainText);
    remedy->setWordWrap(true);
    remedy->setTextInteractionFlags(Qt::TextSelectableByMouse); // it may hold a command to copy
    column->addWidget(remedy);
    rows_->addWidget(row);
    row->show();
}

void frmNoLCUFound::searchAgain() {
    search_->setEnabled(false);
    search_->setText("Searching\u2026");
    close_->setText("&Cancel search");
    searchedPorts_ = actions_.ports();
    searching_ = true;
    const bool found = actions_.search();
    searching_ = false;
    close_->setText("&Close");
    search_->setEnabled(true);
    if (found) return accept();
    showOutcome(true);
    adjustSize(); // another port may have more to say
}

void frmNoLCUFound::reject() {
    if (searching_) return actions_.cancel();
    ScreenDialog::reject();
}

} // namespace tarvik
