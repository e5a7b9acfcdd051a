#include "screens/status_panels.h"

#include "base/text.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QLabel>
#include <QLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

#include <initializer_list>
#include <utility>

namespace tarvik {

namespace {

QLabel* panel(const char* objectName, const char* role) {
    auto* const label = roleLabel(role);
    label->setObjectName(objectName);
    label->setContentsMargins(8, 0, 8, 0);
    return label;
}

} // namespace

StatusPanels::StatusPanels(QStatusBar& bar, std::function<void()> cancelSearch)
    : bar_(bar),
      text_(panel("lbstatus", "head")),
      link_(panel("lblink", "")),
      progress_(new QProgressBar),
      cancel_(new QPushButton("Cancel search (Esc)")),
      times_(panel("LoggingTime", "")),
      interface_(panel("lbinterface", "quiet")),
      version_(panel("lbversion", "quiet")) {
    bar.setSizeGripEnabled(false);
    for (QLabel* const label : {text_, link_, times_}) label->setMinimumWidth(1); // cut before the window is
    progress_->setObjectName("pgsearch");
    progress_->setFixedWidth(160);
    progress_->setTextVisible(false);
    cancel_->setObjectName("comcancelsearch");
    cancel_->setShortcut(Qt::Key_Escape);
    cancel_->setStyleSheet(
        "padding: 0 12px; min-height: 20px;"); // hidden, it still makes the bar as high as itself
    QObject::connect(cancel_, &QPushButton::clicked, cancel_,
                     [cancelled = std::move(cancelSearch)] { cancelled(); });
    bar.addWidget(text_);
    bar.addWidget(link_);
    bar.addWidget(progress_);
    bar.addWidget(cancel_);
    bar.addWidget(times_, 1);
    bar.addPermanentWidget(interface_);
    bar.addPermanentWidget(version_);
    showSearch(false);
}

void StatusPanels::showText(std::string_view text) {
    text_->setText(qt(text));
    fit();
}

void StatusPanels::showLink(std::string_view text) {
    link_->setText(qt(text));
    fit();
}

void StatusPanels::showTimes(std::string_view elapsed, std::string_view completion) {
    const char* const gap = elapsed.empty() || completion.empty() ? "" : "   ";
    times_->setText(qt(elapsed) + gap + qt(completion));
    fit();
}

void StatusPanels::showInterface(const InterfaceDisplay& display) {
    interface_->setText(qt(display.label));
    fit();
}

void StatusPanels::showVersion(std::string_view label) {
    version_->setText(qt(label));
    fit();
}

void StatusPanels::showProgress(int percent) {
    progress_->setVisible(percent < 100);
    progress_->setRange(0, 100);
    progress_->setValue(percent);
}

void StatusPanels::showSearch(bool searching) {
    progress_->setRange(0, 0);
    progress_->setVisible(searching);
    cancel_->setVisible(searching);
    fit();
}

void StatusPanels::fit() {
    int room = bar_.width() - bar_.layout()->contentsMargins().left();
    for (const QWidget* const first :
         std::initializer_list<QWidget*>{text_, link_, times_, progress_, cancel_})
        if (!first->isHidden()) room -= first->sizeHint().width() + bar_.layout()->spacing();
    for (QLabel* const last : {interface_, version_}) {
        room -= last->sizeHint().width() + bar_.layout()->spacing();
        last->setVisible(room >= 0);
    }
}

} // namespace tarvik
