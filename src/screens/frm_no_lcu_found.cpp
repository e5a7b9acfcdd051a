#include "screens/frm_no_lcu_found.h"

#include "screens/card.h"
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

constexpr const char* whatToCheck =
    "<ol style='margin-left: -20px'>"
    "<li style='margin-bottom: 6px'>Is the LCU switched on?</li>"
    "<li style='margin-bottom: 6px'>Is the serial cable plugged in at both ends?</li>"
    "<li style='margin-bottom: 6px'>Is it the port that the set-up names? A USB adapter "
    "may have another device name after it was moved.</li>"
    "<li>Does another program hold the port?</li></ol>";

} // namespace

frmNoLCUFound::frmNoLCUFound(int lcuComms, bool searched, NoLcuActions actions, DesktopMemory& memory,
                             QWidget* parent)
    : ScreenDialog("frmNoLCUFound", "No LCU found", memory, parent), actions_(std::move(actions)) {
    auto* const headline = roleLabel("title", searched ? "No LCU answered on " + portsText(lcuComms)
                                                       : QString("No search has been made"));
    headline->setObjectName("lbheadline");
    body()->addWidget(headline);
    auto* const card = new Card(searched ? "What to check" : "The automatic search is off");
    auto* const text = new QLabel(searched ? QString(whatToCheck)
                                           : "Search now on " + portsText(lcuComms) +
                                                 ", or switch the automatic search on under Setup.");
    text->setWordWrap(true);
    text->setMinimumWidth(440);
    card->body()->addWidget(text);
    body()->addWidget(card);
    body()->addWidget(roleLabel("quiet", "The event log says for each port what was received."));
    connect(addSideButton("comsetup", "Set up &ports\u2026"), &QPushButton::clicked, this,
            [this] { actions_.setUpPorts(); });
    connect(addButton("comclose", "&Close"), &QPushButton::clicked, this, &QDialog::reject);
    search_ = addPrimaryButton("comsearch", searched ? "&Search again" : "&Search now");
    connect(search_, &QPushButton::clicked, this, [this] { searchAgain(); });
}

void frmNoLCUFound::searchAgain() {
    search_->setEnabled(false);
    search_->setText("Searching\u2026");
    if (actions_.search()) return accept();
    search_->setText("&Search again");
    search_->setEnabled(true);
}

} // namespace tarvik
