#include "screens/leaving.h"

#include "screens/message_box.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <utility>

namespace tarvik {

Leaving::Leaving(Program& program, IntroScreen& screen, LinkGate& gate, Acquisition& acquisition,
                 Demonstration& demonstration, LeavingActions actions)
    : program_(program),
      screen_(screen),
      gate_(gate),
      acquisition_(acquisition),
      demonstration_(demonstration),
      actions_(std::move(actions)) {}

void Leaving::requested() {
    if (program_.state.searching) {
        afterSearch_ = true;
        return actions_.cancelSearch();
    }
    if (acquisition_.running()) return offerToStop();
    if (demonstration_.running()) return stopDemonstration();
    actions_.exit();
}

/// A cancelled search ends within a second.
void Leaving::lookAgain() {
    if (program_.state.searching || QApplication::activeModalWidget() != nullptr) return;
    if (std::exchange(afterSearch_, false)) requested();
}

/// What is under way first; the next step comes with the next second.
void Leaving::stepByStep() {
    actions_.cancelSearch();
    if (acquisition_.running()) return acquisition_.stop();
    if (demonstration_.running()) return demonstration_.stop();
    if (!gate_.open()) return;
    if (QWidget* const inTheWay = QApplication::activeModalWidget()) return void(inTheWay->close());
    program_.state.mustEnd = true;
    actions_.exit();
}

void Leaving::unseen() {
    program_.log.red("The display has gone, Tarvik ends");
    acquisition_.closeUnseen();
    if (program_.link.open() && program_.link.diagnosticsOpen) { // the tool may have been given power by hand
        program_.link.busy = false;
        program_.lcu.LCU_PowerOFF_Reset();
    }
    program_.shutDown.leaveUnseen();
}

/// Without waiting for the answer: the run goes on behind the box.
void Leaving::offerToStop() {
    if (screen_.findChild<QMessageBox*>("boxstopandclose") != nullptr) return;
    const char* const question =
        program_.link.lost ? "A logging run is under way, and the LCU does not answer.\nStop the run and "
                             "close? The tool may keep its power."
                           : "A logging run is under way.\nStop it, power the tool down and close?";
    auto* const box = makeMessageBox(Icon::exclamation, "Tarvik", question, &screen_)
                          .release(); // its own parent's from here on
    box->setObjectName("boxstopandclose");
    box->setAttribute(Qt::WA_DeleteOnClose);
    auto* const stop = box->addButton("&Stop and close", QMessageBox::AcceptRole);
    stop->setObjectName("comstopandclose");
    box->setDefaultButton(box->addButton("&Go on logging", QMessageBox::RejectRole));
    QObject::connect(stop, &QPushButton::clicked, [this] {
        if (!acquisition_.running()) return requested();
        acquisition_.whenEnded([this] { QTimer::singleShot(0, [this] { afterRun(); }); });
        acquisition_.stop();
    });
    box->setModal(false); // the stop key works beside it
    box->show();
}

/// The notice of the run would go with the window.
void Leaving::afterRun() {
    if (program_.link.powerDoubtful)
        program_.frame.operatorSide.message("Tool power", toolPowerUnknown, Icon::critical);
    requested();
}

/// Nothing is lost by stopping it: no question is worth it.
void Leaving::stopDemonstration() {
    demonstration_.whenEnded([this] { QTimer::singleShot(0, [this] { requested(); }); });
    demonstration_.stop();
}

} // namespace tarvik
